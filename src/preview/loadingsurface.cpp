#include "preview/loadingsurface.h"

#include "common/pathlookup.h"

#include <QImageReader>

// Readers that check the file's signature and refuse anything else, so naming one of them
// can never turn a file of another format into a wrong picture.
static bool refusesOtherFormats(const QByteArray &format)
{
    return format == "bmp" || format == "jpeg" || format == "png" || format == "gif";
}

bool LoadingSurface::load(const QString &path)
{
    if (path.isEmpty())
        return false;
    // A folder or a missing file fails the reads below and keeps the previous picture.
    const QString file = resolveThemePath(path);
    // Frames of a sequence share a format: reading with the last one skips asking every
    // reader installed whether it knows the content.
    if (refusesOtherFormats(m_lastFormat)) {
        QImageReader reader(file, m_lastFormat);
        reader.setAutoDetectImageFormat(false);
        if (reader.read(&m_scratch) && !m_scratch.isNull())
            return keepScratch(m_lastFormat);
    }
    QImageReader reader(file);
    // Authors rename files freely; trust the content over the extension.
    reader.setDecideFormatFromContent(true);
    const QByteArray format = reader.format();
    if (!reader.read(&m_scratch) || m_scratch.isNull())
        return false;
    return keepScratch(format);
}

bool LoadingSurface::keepScratch(const QByteArray &format)
{
    // Keeping both buffers lets the next decode of a same-sized frame reuse the allocation.
    m_picture.swap(m_scratch);
    m_lastFormat = format;
    return true;
}
