// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "art/artsource.h"

#include "art/parallel.h"
#include "common/result.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>

namespace {

/** What one file gave: its frames with their delays, or why it gave none. */
struct PictureFrames {
    QList<QImage> frames;
    QList<int> delays; // empty unless animated
    QString error;
};

QString shown(const QString &path) { return QDir::toNativeSeparators(path); }

PictureFrames readPicture(const QString &path, QSize sheet, const FrameConversion &convert)
{
    const auto keep = [&](const QImage &frame) { return convert ? convert(frame) : frame; };
    PictureFrames out;
    QImageReader reader(path);
    reader.setAutoTransform(true);
    const bool animated = reader.supportsAnimation() && reader.imageCount() != 1 && !sheet.isValid();
    QList<int> delays;
    do {
        QImage image = reader.read();
        if (image.isNull()) {
            if (out.frames.isEmpty()) {
                out.error = QCoreApplication::translate("ArtSource", "%1 could not be read as a picture: %2.").arg(shown(path), reader.errorString());
                return out;
            }
            break; // an animation ends where its frames do
        }
        out.frames.append(sheet.isValid() ? image : keep(image));
        delays.append(reader.nextImageDelay());
    } while (animated && reader.canRead());
    if (animated && out.frames.size() > 1)
        out.delays = delays;
    if (!sheet.isValid())
        return out;

    const QImage whole = out.frames.constFirst();
    out.frames.clear();
    if (whole.width() % sheet.width() != 0 || whole.height() % sheet.height() != 0) {
        out.error = QCoreApplication::translate("ArtSource", "%1 is %2 x %3 pixels, which does not divide into %4 x %5 cells.")
                        .arg(shown(path)).arg(whole.width()).arg(whole.height())
                        .arg(sheet.width()).arg(sheet.height());
        return out;
    }
    const int w = whole.width() / sheet.width();
    const int h = whole.height() / sheet.height();
    for (int row = 0; row < sheet.height(); ++row) {
        for (int column = 0; column < sheet.width(); ++column)
            out.frames.append(keep(whole.copy(column * w, row * h, w, h)));
    }
    return out;
}

/** The picture files \a sources stand for, in order; an error for a source that gives none. */
Result<QStringList> pictureFiles(const QStringList &sources)
{
    Report report;
    QStringList files;
    for (const QString &source : sources) {
        const QFileInfo info(source);
        if (!info.exists()) {
            report.error(QCoreApplication::translate("ArtSource", "%1 does not exist.").arg(shown(source)), {}, source);
        } else if (info.isDir()) {
            QStringList names;
            for (const QString &name : QDir(source).entryList(QDir::Files | QDir::Readable)) {
                if (isPictureName(name))
                    names.append(name);
            }
            if (names.isEmpty())
                report.error(QCoreApplication::translate("ArtSource", "%1 holds no pictures.").arg(shown(source)), {}, source);
            for (const QString &name : naturalOrder(names))
                files.append(QDir(source).filePath(name));
        } else {
            files.append(source);
        }
    }
    if (report.hasErrors())
        return report;
    return files;
}

// Runs of digits compare by their value, everything else without regard to case.
bool naturallyBefore(QStringView a, QStringView b)
{
    qsizetype i = 0, j = 0;
    while (i < a.size() && j < b.size()) {
        if (a[i].isDigit() && b[j].isDigit()) {
            const qsizetype si = i, sj = j;
            while (i < a.size() && a[i].isDigit())
                ++i;
            while (j < b.size() && b[j].isDigit())
                ++j;
            QStringView x = a.mid(si, i - si), y = b.mid(sj, j - sj);
            while (x.size() > 1 && x[0] == u'0')
                x = x.mid(1);
            while (y.size() > 1 && y[0] == u'0')
                y = y.mid(1);
            if (x.size() != y.size())
                return x.size() < y.size();
            if (const int c = x.compare(y); c != 0)
                return c < 0;
            continue;
        }
        if (const int c = QStringView(a).mid(i, 1).compare(b.mid(j, 1), Qt::CaseInsensitive); c != 0)
            return c < 0;
        ++i;
        ++j;
    }
    return a.size() - i < b.size() - j;
}

} // namespace

bool isPictureName(const QString &path)
{
    static const QList<QByteArray> suffixes = QImageReader::supportedImageFormats();
    return suffixes.contains(QFileInfo(path).suffix().toLower().toLatin1());
}

QStringList naturalOrder(QStringList names)
{
    std::stable_sort(names.begin(), names.end(),
                     [](const QString &a, const QString &b) { return naturallyBefore(a, b); });
    return names;
}

int medianDelay(QList<int> delays)
{
    if (delays.isEmpty())
        return -1;
    std::sort(delays.begin(), delays.end());
    return delays.at((delays.size() - 1) / 2);
}

ArtFrames readArtFrames(const QStringList &sources, QSize sheet, const ArtProgress &progress,
                        const FrameConversion &convert)
{
    ArtFrames out;
    if (sources.isEmpty())
        out.error(QCoreApplication::translate("ArtSource", "No art was given to import."));
    const Result<QStringList> found = pictureFiles(sources);
    out.append(found.report());
    if (out.hasErrors())
        return out;
    const QStringList &files = *found;
    // Pictures decode on every core; an animation's frames, one after another, on one.
    QList<PictureFrames> read(files.size());
    if (!parallelFor(files.size(), [&](qsizetype i) { read[i] = readPicture(files.at(i), sheet, convert); }, progress)) {
        out.error(QCoreApplication::translate("ArtSource", "The import was cancelled."));
        return out;
    }
    for (const PictureFrames &p : read) {
        if (!p.error.isEmpty()) {
            out.error(p.error);
            out.frames.clear();
            return out;
        }
        out.frames += p.frames;
        out.delays += p.delays;
    }
    // Delays stand for the whole run only when every frame came with one.
    if (out.delays.size() != out.frames.size())
        out.delays.clear();
    return out;
}
