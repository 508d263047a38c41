// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/editorstyle.h"

#include "editor/rawpicture.h"

#include <QApplication>
#include <QGroupBox>
#include <qdrawutil.h>
#include <QIconEngine>
#include <QPainter>
#include <QPointer>
#include <QProxyStyle>
#include <QResource>
#include <QStyleFactory>
#include <QStyleOption>

#include <algorithm>
#include <optional>

namespace {

/** A standard icon of \a style, asked for when it is first drawn or measured. */
class DeferredIconEngine : public QIconEngine
{
public:
    DeferredIconEngine(QStyle *style, QStyle::StandardPixmap which, Qt::LayoutDirection direction)
        : m_style(style), m_which(which), m_direction(direction)
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        icon().paint(painter, rect, Qt::AlignCenter, mode, state);
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return icon().pixmap(size, mode, state);
    }
    QPixmap scaledPixmap(const QSize &size, QIcon::Mode mode, QIcon::State state, qreal scale) override
    {
        return icon().pixmap(size, scale, mode, state);
    }
    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return icon().actualSize(size, mode, state);
    }
    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) override
    {
        return icon().availableSizes(mode, state);
    }
    QIconEngine *clone() const override { return new DeferredIconEngine(m_style, m_which, m_direction); }
    QString key() const override { return QStringLiteral("DeferredIconEngine"); }
    bool isNull() override { return false; }

private:
    const QIcon &icon()
    {
        if (!m_icon) {
            QStyleOption option;
            option.direction = m_direction;
            m_icon = m_style ? m_style->standardIcon(m_which, &option) : QIcon();
        }
        return *m_icon;
    }

    QPointer<QStyle> m_style;
    QStyle::StandardPixmap m_which;
    Qt::LayoutDirection m_direction;
    std::optional<QIcon> m_icon;
};

class EditorStyle : public QProxyStyle
{
public:
    explicit EditorStyle(QStyle *base)
        : QProxyStyle(base)
        , m_fusion(base->name().compare(QLatin1String("fusion"), Qt::CaseInsensitive) == 0)
    {
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (element != PE_FrameGroupBox || !m_fusion)
            return QProxyStyle::drawPrimitive(element, option, painter, widget);
        // Fusion's own frame, from the same picture, taken from Qt when the editor was built.
        // Fusion loads it by file name, and Qt then loads every image plugin to ask whether it
        // reads PNG before its own reader does: on the window's first paint, that was a tenth
        // of the start-up; reading it as PNG at all still had Qt look through the plugins.
        if (m_groupBoxFrame.isNull()) {
            const QResource stored(QStringLiteral(":/icons/fusion-groupbox.raw"));
            m_groupBoxFrame = QPixmap::fromImage(rawPicture(stored.uncompressedData()));
        }
        if (m_groupBoxFrame.isNull())
            return QProxyStyle::drawPrimitive(element, option, painter, widget);
        constexpr int groupBoxTopMargin = 3;
        const auto *box = qobject_cast<const QGroupBox *>(widget);
        const bool titleRow = !box || box->isCheckable() || !box->title().isEmpty();
        const int top = groupBoxTopMargin
                        + (titleRow ? std::max(proxy()->pixelMetric(PM_ExclusiveIndicatorHeight), option->fontMetrics.height())
                                    : 0);
        qDrawBorderPixmap(painter, option->rect.adjusted(0, top, 0, 0), QMargins(6, 6, 6, 6), m_groupBoxFrame);
    }

    QIcon standardIcon(StandardPixmap which, const QStyleOption *option, const QWidget *widget) const override
    {
        if (which != SP_ToolBarHorizontalExtensionButton && which != SP_ToolBarVerticalExtensionButton)
            return QProxyStyle::standardIcon(which, option, widget);
        const Qt::LayoutDirection direction = option ? option->direction
                                              : widget ? widget->layoutDirection()
                                                       : QApplication::layoutDirection();
        return QIcon(new DeferredIconEngine(baseStyle(), which, direction));
    }

private:
    const bool m_fusion;
    mutable QPixmap m_groupBoxFrame; // read on the first frame drawn, with the style it belongs to
};

} // namespace

void installEditorStyle()
{
    // A style of the same kind as the application's, for the proxy to own.
    if (QStyle *base = QStyleFactory::create(QApplication::style()->name()))
        QApplication::setStyle(new EditorStyle(base));
}
