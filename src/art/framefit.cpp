#include "art/framefit.h"

#include <QPainter>

namespace {

// Enlarging: the least whole factor that covers; shrinking: the largest whole divisor that still covers.
QImage pixelScaled(const QImage &picture, QSize size)
{
    const QSize own = picture.size();
    if (own.width() >= size.width() && own.height() >= size.height()) {
        const int divisor = std::max(1, std::min(own.width() / size.width(), own.height() / size.height()));
        return picture.scaled(QSize(own.width() / divisor, own.height() / divisor), Qt::IgnoreAspectRatio, Qt::FastTransformation);
    }
    const int factor = std::max((size.width() + own.width() - 1) / own.width(),
                                (size.height() + own.height() - 1) / own.height());
    return picture.scaled(own * factor, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

QImage scaledFor(const QImage &picture, QSize size, FrameFit fit)
{
    switch (fit) {
    case FrameFit::Fill:
        return picture.scaled(size, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
    case FrameFit::Fit:
        return picture.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    case FrameFit::Stretch:
        return picture.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    case FrameFit::Pixel:
        return pixelScaled(picture, size);
    }
    return picture;
}

} // namespace

QImage fitFrame(const QImage &picture, QSize size, FrameFit fit, QColor background)
{
    const QImage source = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QImage scaled = source.size() == size ? source : scaledFor(source, size, fit);
    QImage frame(size, QImage::Format_RGB32);
    frame.fill(background.rgb());
    QPainter painter(&frame);
    // Centred: a larger picture loses equal margins, a smaller one gets them.
    painter.drawImage(QPoint((size.width() - scaled.width()) / 2, (size.height() - scaled.height()) / 2), scaled);
    painter.end();
    return frame.convertToFormat(QImage::Format_RGB888);
}
