#include "preview/loadingsurface.h"

#include "document/pathlookup.h"

#include <QImageReader>

bool LoadingSurface::load(const QString &path)
{
    if (path.isEmpty())
        return false;
    // A folder or a missing file fails the read below and keeps the previous picture.
    QImageReader reader(resolveThemePath(path));
    // Authors rename files freely; trust the content over the extension.
    reader.setDecideFormatFromContent(true);
    if (!reader.read(&m_scratch) || m_scratch.isNull())
        return false;
    // Keeping both buffers lets the next decode of a same-sized frame reuse the allocation.
    m_picture.swap(m_scratch);
    return true;
}
