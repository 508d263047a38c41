// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "art/artimport.h"

#include "art/soundconvert.h"
#include "editing/packagebuilder.h"
#include "common/pathlookup.h"
#include "common/platform.h"
#include "common/safefile.h"
#include "preview/elementpreview.h"
#include "theme/animatedelement.h"
#include "theme/themedocument.h"
#include "theme/themefields.h"
#include "theme/themefilewriter.h"
#include "theme/themeloader.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageWriter>
#include <QTemporaryDir>

#include <cerrno>
#include <cstdio>

namespace {

QString shown(const QString &path) { return QDir::toNativeSeparators(path); }

bool isTextKey(const char *key)
{
    return fieldSpec(key).kind == FieldKind::Text;
}

/** The bytes of \a frame as a bitmap or a JPEG; empty when Qt's writer refused. */
QByteArray encodedFrame(const QImage &frame, const ArtOptions &options)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, options.format == FrameFormat::Jpg ? "jpg" : "bmp");
    if (options.format == FrameFormat::Jpg)
        writer.setQuality(options.quality);
    return writer.write(frame) ? bytes : QByteArray();
}

/** Writes a file of the staging folder, checking every step; "" or why it failed. */
QString writeStaged(const QString &path, const QByteArray &bytes)
{
    if (!QDir().mkpath(QFileInfo(path).absolutePath()))
        return QCoreApplication::translate("ArtImport", "Could not make the folder for %1.").arg(shown(path));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
        const QString reason = file.errorString();
        file.remove();
        return QCoreApplication::translate("ArtImport", "%1 could not be written: %2.").arg(shown(path), reason);
    }
    file.close();
    if (file.error() != QFileDevice::NoError)
        return QCoreApplication::translate("ArtImport", "%1 could not be written: %2.").arg(shown(path), file.errorString());
    return {};
}

Result<void> renamed(const QString &from, const QString &to)
{
    if (std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0)
        return {};
    return Result<void>::fail(
        QCoreApplication::translate("ArtImport", "%1 could not be moved to %2: %3.").arg(shown(from), shown(to), systemReason(errno)));
}

/** A name inside the folder: "/" separators, nothing that climbs out. */
std::optional<QString> folderName(QString name)
{
    name = QDir::cleanPath(name.replace(u'\\', u'/'));
    if (name.isEmpty() || name == u"." || name == u".." || name.startsWith(QStringLiteral("../"))
        || isAbsoluteThemePath(name))
        return std::nullopt;
    return name;
}

/** The starting or still frame kept when it is a frame of the new count, else 1. */
QString keptFrame(const QString &value, qsizetype count)
{
    bool ok = false;
    const int n = value.trimmed().toInt(&ok);
    return ok && n >= 1 && n <= count ? value : QStringLiteral("1");
}

/**
 * Puts the staged files in place, each replaced file kept aside until the import is over, so
 * that undo() brings the folder back exactly.
 */
class FolderSwap
{
public:
    FolderSwap(QString folder, QString staging) : m_folder(std::move(folder)), m_staging(std::move(staging)) {}

    Result<void> put(const QString &name)
    {
        const QString target = m_folder + u'/' + name;
        if (!QDir().mkpath(QFileInfo(target).absolutePath()))
            return Result<void>::fail(QCoreApplication::translate("ArtImport", "Could not make the folder for %1.").arg(shown(target)));
        if (Result<void> aside = moveAside(name); !aside)
            return aside;
        if (Result<void> moved = renamed(m_staging + QStringLiteral("/new/") + name, target); !moved)
            return moved;
        m_placed.append(name);
        return {};
    }

    /** Moves \a name out of the folder (when it is there) to where undo() finds it. */
    Result<void> moveAside(const QString &name)
    {
        const QString target = m_folder + u'/' + name;
        if (!QFileInfo::exists(target) && !QFileInfo(target).isSymLink())
            return {};
        const QString old = m_staging + QStringLiteral("/old/") + name;
        if (!QDir().mkpath(QFileInfo(old).absolutePath()))
            return Result<void>::fail(QCoreApplication::translate("ArtImport", "Could not make the folder for %1.").arg(shown(old)));
        if (Result<void> moved = renamed(target, old); !moved)
            return moved;
        m_aside.append(name);
        return {};
    }

    void undo()
    {
        for (const QString &name : std::as_const(m_placed))
            QFile::remove(m_folder + u'/' + name);
        for (const QString &name : std::as_const(m_aside))
            (void)renamed(m_staging + QStringLiteral("/old/") + name, m_folder + u'/' + name);
        m_placed.clear();
        m_aside.clear();
    }

    /** Files moved aside that nothing took the place of, kept in the folder's "replaced" folder. */
    void keepUnreplaced()
    {
        for (const QString &name : std::as_const(m_aside)) {
            if (m_placed.contains(name))
                continue;
            const QString kept = m_folder + QStringLiteral("/replaced/") + name;
            QDir().mkpath(QFileInfo(kept).absolutePath());
            QFile::remove(kept);
            (void)renamed(m_staging + QStringLiteral("/old/") + name, kept);
        }
    }

private:
    QString m_folder;
    QString m_staging;
    QStringList m_placed;
    QStringList m_aside;
};

class Importer
{
public:
    Importer(ThemeDocument &doc, const ArtTarget &target, const ArtOptions &options, const ArtProgress &progress)
        : m_doc(doc), m_target(target), m_options(options), m_progress(progress)
    {
    }

    ArtImportReport run(const QStringList &sources)
    {
        if (!checkTheme(sources))
            return m_report;
        QTemporaryDir staging(m_report.folder + QStringLiteral("/.stakko-import-XXXXXX"));
        if (!staging.isValid()) {
            m_report.error(QCoreApplication::translate("ArtImport", "Could not make a folder in %1: %2.").arg(shown(m_report.folder), staging.errorString()));
            return m_report;
        }
        m_staging = staging.path();
        const bool made = m_target.kind == FileKind::WaveSound || m_target.kind == FileKind::Music ? makeSound(sources)
                                                                                                 : makePictures(sources);
        if (made)
            place();
        return m_report;
    }

private:
    bool checkTheme(const QStringList &sources)
    {
        if (m_target.section->typeOneOnly && m_doc.number(FieldKey::themeType) != 1) {
            m_report.error(QCoreApplication::translate("ArtImport", "%1 needs Theme Type 1: a Theme Type 0 theme holds only interface "
                                                                    "screens, sounds and music.").arg(m_target.label()),
                           QLatin1StringView(FieldKey::themeType));
            return false;
        }
        if (m_doc.currentThemeFile().isEmpty()) {
            m_report.error(QCoreApplication::translate("ArtImport", "Save the theme first: the import saves it with the new files."));
            return false;
        }
        if (m_target.kind != FileKind::FrameSequence && sources.size() != 1) {
            m_report.error(QCoreApplication::translate("ArtImport", "%1 takes one file, not %2.").arg(m_target.label()).arg(sources.size()),
                           m_target.key);
            return false;
        }
        const QString folder = m_options.folder.isEmpty() ? defaultBuildSource(m_doc) : m_options.folder;
        m_report.folder = QDir(folder).absolutePath();
        if (!QFileInfo(m_report.folder).isDir()) {
            m_report.error(QCoreApplication::translate("ArtImport", "%1 is not a folder.").arg(shown(folder)));
            return false;
        }
        const QString name = !m_options.name.isEmpty() ? m_options.name
                           : m_target.element && !m_doc.value(m_target.element->rootField).isEmpty()
                               ? m_doc.value(m_target.element->rootField).mid(afterLastSeparator(m_doc.value(m_target.element->rootField)))
                               : m_target.defaultName();
        const std::optional<QString> inside = folderName(name);
        if (!inside || (m_target.element && name.contains(u'.'))) {
            m_report.error(QCoreApplication::translate("ArtImport", "\"%1\" cannot name files in the folder%2.")
                               .arg(name, m_target.element ? QCoreApplication::translate("ArtImport", " (a frame root holds no \".\")") : QString()));
            return false;
        }
        m_name = *inside;
        return true;
    }

    bool stage(const QString &name, const QByteArray &bytes)
    {
        const QString error = writeStaged(m_staging + QStringLiteral("/new/") + name, bytes);
        if (!error.isEmpty())
            m_report.error(error, m_target.key);
        return error.isEmpty();
    }

    bool makePictures(const QStringList &sources)
    {
        // Each picture is fitted on the core that decoded it: 200 big pictures never wait in memory.
        ArtFrames art = readArtFrames(sources, m_options.sheet, m_progress, [this](const QImage &picture) {
            return importedFrame(m_target, picture, m_options);
        });
        m_report.append(art);
        if (art.hasErrors())
            return false;
        if (m_target.kind != FileKind::FrameSequence)
            art.frames = art.frames.mid(0, 1);
        const QString extension = m_options.format == FrameFormat::Jpg ? QStringLiteral("jpg") : QStringLiteral("bmp");
        m_extension = extension;
        for (qsizetype n = 1; n <= art.frames.size(); ++n) {
            m_report.files.append(m_target.element ? m_name + QString::number(n) + u'.' + extension
                                                   : m_name + u'.' + extension);
        }
        QStringList errors(art.frames.size());
        const bool finished = parallelFor(art.frames.size(), [&](qsizetype i) {
            const QByteArray bytes = encodedFrame(art.frames.at(i), m_options);
            errors[i] = bytes.isEmpty() ? QCoreApplication::translate("ArtImport", "Frame %1 could not be encoded.").arg(i + 1)
                                        : writeStaged(m_staging + QStringLiteral("/new/") + m_report.files.at(i), bytes);
        }, m_progress);
        for (const QString &error : std::as_const(errors)) {
            if (!error.isEmpty()) {
                m_report.error(error, m_target.key);
                return false;
            }
        }
        if (!finished) {
            m_report.error(QCoreApplication::translate("ArtImport", "The import was cancelled."));
            return false;
        }
        m_report.frames = art.frames.size();
        m_report.delay = medianDelay(art.delays);
        if (m_target.element)
            setFrameFields(extension);
        else
            setFileField(m_report.files.constFirst());
        return true;
    }

    bool makeSound(const QStringList &sources)
    {
        const ConvertedSound sound = m_target.kind == FileKind::Music ? convertGameMusic(sources.constFirst())
                                                                      : convertGameSound(sources.constFirst());
        m_report.append(sound);
        if (sound.hasErrors())
            return false;
        m_report.files.append(m_name + u'.' + sound.extension);
        if (!stage(m_report.files.constFirst(), sound.bytes))
            return false;
        setFileField(m_report.files.constFirst());
        return true;
    }

    void set(const char *key, const QString &value) { m_report.fields.append({QString::fromLatin1(key), value}); }

    void setFrameFields(const QString &extension)
    {
        const AnimatedElement &e = *m_target.element;
        const qsizetype count = m_report.frames;
        set(e.imageField, m_name + QStringLiteral("1.") + extension);
        set(e.rootField, m_name);
        set(e.extensionField, extension);
        set(e.frameCountField, QString::number(count));
        if (e.animatedFields[0])
            set(e.animatedFields[0], count > 1 ? QStringLiteral("1") : QStringLiteral("0"));
        if (e.startingFrameField)
            set(e.startingFrameField, keptFrame(m_doc.value(e.startingFrameField), count));
        if (e.stillFrameField)
            set(e.stillFrameField, keptFrame(m_doc.value(e.stillFrameField), count));
        if (m_report.delay >= 0)
            set(e.delayField, QString::number(m_report.delay));
        set(e.includeField, QStringLiteral("1"));
    }

    void setFileField(const QString &name)
    {
        // A Type 0 theme names its files where they are.
        const bool absolute = m_doc.number(FieldKey::themeType) != 1;
        set(m_target.key.toLatin1().constData(),
            absolute ? shown(m_report.folder + u'/' + name) : name);
        set(m_target.section->include, QStringLiteral("1"));
    }

    /** The frames the element's old count named beyond the new one, under the same names. */
    QStringList staleFrames() const
    {
        QStringList stale;
        const AnimatedElement *e = m_target.element;
        if (!e)
            return stale;
        const QString oldRoot = QDir::fromNativeSeparators(m_doc.value(e->rootField)).replace(u'\\', u'/');
        if (oldRoot != m_name || m_doc.value(e->extensionField) != m_extension)
            return stale;
        bool ok = false;
        const int oldCount = m_doc.value(e->frameCountField).trimmed().toInt(&ok);
        for (int n = int(m_report.frames) + 1; ok && n <= oldCount; ++n)
            stale.append(m_name + QString::number(n) + u'.' + m_doc.value(e->extensionField));
        return stale;
    }

    void apply(ThemeDocument &doc) const
    {
        for (const auto &[key, value] : m_report.fields) {
            if (fieldSpec(key).kind == FieldKind::Text)
                doc.setText(key, value);
            else
                doc.setNumber(key, value.toInt());
        }
    }

    void place()
    {
        FolderSwap swap(m_report.folder, m_staging);
        const auto fail = [&](const QString &text) {
            swap.undo();
            m_report.error(text);
        };
        for (const QString &name : std::as_const(m_report.files)) {
            if (const Result<void> put = swap.put(name); !put)
                return fail(put.errorText());
        }
        for (const QString &name : staleFrames()) {
            if (const Result<void> aside = swap.moveAside(name); !aside)
                return fail(aside.errorText());
        }

        ThemeDocument updated;
        updated.assignFrom(m_doc);
        apply(updated);
        const Result<QByteArray> bytes = themeFileBytes(updated);
        if (!bytes)
            return fail(bytes.errorText());
        SafeFile theme(m_doc.currentThemeFile());
        if (!theme.open() || !theme.write(*bytes) || !theme.finishAside())
            return fail(QCoreApplication::translate("ArtImport", "%1 could not be saved: %2.").arg(shown(m_doc.currentThemeFile()), theme.errorString()));
        if (updated.number(FieldKey::themeType) == 1 && !buildPackage(updated)) {
            swap.undo(); // the theme's new bytes, never published, go with the SafeFile
            return;
        }
        if (!theme.publish())
            return fail(QCoreApplication::translate("ArtImport", "%1 could not be saved: %2.").arg(shown(m_doc.currentThemeFile()), theme.errorString()));

        swap.keepUnreplaced();
        apply(m_doc);
        if (m_target.kind == FileKind::Music && m_doc.number(FieldKey::themeType) == 1)
            m_doc.setMusicFolder(m_report.folder + u'/');
        if (m_doc.number(FieldKey::themeType) == 1 && m_doc.packageFolder().isEmpty())
            m_doc.setPackageFolder(m_report.folder + u'/', m_report.folder + u'/');
        m_doc.setDirty(false);
        m_report.imported = true;
    }

    /** False only when the package could not be written; files other rows miss leave it as it was. */
    bool buildPackage(ThemeDocument &updated)
    {
        const BuildReport built = buildResourcePackage(updated, {m_report.folder, QString(), false});
        m_report.package = built.package;
        m_report.packageBuilt = built.written;
        if (built.written)
            return true;
        const bool onlyOtherRows = std::all_of(built.problems.cbegin(), built.problems.cend(), [](const Problem &p) {
            return p.code == u"file-missing" || p.code == u"frame-missing" || p.code == u"path-absolute";
        });
        if (!onlyOtherRows || built.problems.isEmpty()) {
            m_report.append(built);
            return false;
        }
        Problem note;
        note.severity = Problem::Severity::Warning;
        note.text = QCoreApplication::translate("ArtImport", "The package was not rebuilt: the theme names files that are not in %1.")
                        .arg(shown(m_report.folder));
        note.field = QLatin1StringView(FieldKey::resourceFile);
        m_report.add(note);
        for (Problem p : built.problems) {
            p.severity = Problem::Severity::Warning;
            m_report.add(p);
        }
        return true;
    }

    ThemeDocument &m_doc;
    const ArtTarget &m_target;
    const ArtOptions &m_options;
    const ArtProgress &m_progress;
    ArtImportReport m_report;
    QString m_staging;
    QString m_extension; // of the frames
    QString m_name; // file name or frame root inside the folder, "/" separators
};

} // namespace

QString ArtTarget::label() const
{
    QString text = element ? elementCaption(element->id) : fieldCaptionText(key);
    return text.endsWith(u':') ? text.chopped(1) : text;
}

QSize ArtTarget::frameSize() const
{
    return element ? element->frame : QSize();
}

QString ArtTarget::defaultName() const
{
    return element ? QString::fromLatin1(element->imageField).remove(QStringLiteral("image")) : key;
}

std::optional<ArtTarget> artTarget(const QString &key)
{
    for (const ThemeSection &section : themeSections()) {
        if (!section.files)
            continue;
        const FileKind kind = *section.files;
        if (const AnimatedElement *e = animationOf(section); e && key == QLatin1StringView(e->imageField))
            return ArtTarget{key, kind, &section, e};
        if (kind != FileKind::StillImage && kind != FileKind::WaveSound && kind != FileKind::Music)
            continue;
        for (const FieldSpec &k : section.keys) {
            if (key == QLatin1StringView(k.key) && isTextKey(k.key))
                return ArtTarget{key, kind, &section, nullptr};
        }
    }
    return std::nullopt;
}

QStringList artTargetKeys()
{
    QStringList keys;
    for (const ThemeSection &section : themeSections()) {
        if (const AnimatedElement *e = animationOf(section)) {
            keys.append(QString::fromLatin1(e->imageField));
            continue;
        }
        for (const FieldSpec &k : section.keys) {
            if (artTarget(QString::fromLatin1(k.key)))
                keys.append(QString::fromLatin1(k.key));
        }
    }
    return keys;
}

QImage importedFrame(const ArtTarget &target, const QImage &picture, const ArtOptions &options)
{
    const QSize size = target.element ? target.frameSize() : options.size.isValid() ? options.size : picture.size();
    return fitFrame(picture, size, options.fit, options.background);
}

ArtImportReport importArt(ThemeDocument &doc, const QString &key, const QStringList &sources,
                          const ArtOptions &options, const ArtProgress &progress)
{
    const std::optional<ArtTarget> target = artTarget(key);
    if (!target) {
        ArtImportReport report;
        report.error(QCoreApplication::translate("ArtImport", "\"%1\" is not an image, animation, sound or music row.").arg(key));
        return report;
    }
    return Importer(doc, *target, options, progress).run(sources);
}
