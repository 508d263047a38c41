#include "preview/framesequence.h"

#include <QLocale>

#include <cmath>

std::optional<FrameSequence> FrameSequence::fromImageText(const QString &imageText)
{
    const qsizetype dot = imageText.indexOf(u'.');
    if (dot < 0)
        return std::nullopt;
    FrameSequence sequence;
    sequence.m_root = imageText.left(std::max<qsizetype>(dot - 1, 0));
    sequence.m_extension = imageText.mid(dot + 1);
    return sequence;
}

QString FrameSequence::frameName(const QString &folder, qint64 n) const
{
    return folder + m_root + QString::number(n) + u'.' + m_extension;
}

static std::optional<double> parseIn(QLocale locale, const QString &text)
{
    locale.setNumberOptions(QLocale::RejectGroupSeparator);
    bool ok = false;
    const double value = locale.toDouble(text, &ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<double> parseAuthorNumber(const QString &text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return std::nullopt;
    if (const auto value = parseIn(QLocale::system(), trimmed))
        return value;
    return parseIn(QLocale::c(), trimmed);
}

double roundHalfEven(double value)
{
    const double below = std::floor(value);
    const double fraction = value - below;
    if (fraction < 0.5)
        return below;
    if (fraction > 0.5)
        return below + 1;
    return std::fmod(below, 2.0) == 0 ? below : below + 1;
}

qint64 frameNumber(double value)
{
    // Far beyond any strip that fits in memory, and far from qint64 overflow when counted on.
    constexpr double limit = 1e15;
    return qint64(std::clamp(roundHalfEven(value), -limit, limit));
}
