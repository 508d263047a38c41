// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/themechecker.h"

#include "common/ansitext.h"
#include "common/numbertext.h"
#include "common/pathlookup.h"
#include "common/profilereader.h"
#include "theme/animatedelement.h"
#include "theme/description.h"
#include "theme/referencedfiles.h"
#include "theme/themedocument.h"
#include "theme/themecolors.h"
#include "theme/themeloader.h"
#include "theme/themesections.h"
#include "package/zipdirectory.h"
#include "preview/elementpreview.h"
#include "preview/framesequence.h"
#include "preview/framesettings.h"
#include "preview/loadingsurface.h"
#include "sound/soundsystem.h"
#include "sound/waveformat.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QImageReader>
#include <QSet>

#include <algorithm>
#include <cmath>

namespace {

using Severity = Problem::Severity;

// The game addresses a frame strip's rows with 16-bit offsets.
constexpr int stripRowsReached = 32768;
// The profile reader hands back at most this many characters.
constexpr qsizetype longestValue = 254;

QString captionOf(QAnyStringView key)
{
    QString caption = fieldCaptionText(key);
    if (caption.endsWith(u':'))
        caption.chop(1);
    return caption;
}

/** Why the profile reader gives back \a text changed, or "" when it reads back as written. */
QString readBackChange(const QString &text)
{
    const auto blank = [](QChar c) { return c == u' ' || c == u'\t'; };
    if (text.size() > longestValue)
        return QCoreApplication::translate("ThemeChecker", "it is longer than %1 characters and reads back cut").arg(longestValue);
    if (text.contains(u'\r') || text.contains(u'\n'))
        return QCoreApplication::translate("ThemeChecker", "a line break in it ends its line in the file");
    if (!text.isEmpty() && (blank(text.front()) || blank(text.back())))
        return QCoreApplication::translate("ThemeChecker", "reading drops the blanks at its ends");
    if (text.size() >= 2 && (text.front() == u'"' || text.front() == u'\'') && text.back() == text.front())
        return QCoreApplication::translate("ThemeChecker", "reading drops the quotes around it");
    return {};
}

/** Every text field the theme file for \a doc holds, the description first. */
QList<const char *> writtenTexts(const ThemeDocument &doc)
{
    QList<const char *> keys{FieldKey::description, FieldKey::name, FieldKey::developer, FieldKey::version,
                             doc.number(FieldKey::themeType) == 1 ? FieldKey::resourceFile : FieldKey::skinFile};
    for (const ThemeSection &s : themeSections()) {
        if (!isWritten(doc, s))
            continue;
        for (const FieldSpec &k : s.keys) {
            if (fieldSpec(k.key).kind == FieldKind::Text)
                keys.append(k.key);
        }
    }
    return keys;
}

/** What the picture at \a path is ("a PNG picture") when it is no Windows bitmap or JPEG, else "". */
QString foreignImageKind(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray start = file.peek(3);
    if (start.startsWith("BM") || start == QByteArrayView("\xFF\xD8\xFF"))
        return {};
    const QByteArray format = QImageReader::imageFormat(&file).toUpper();
    return format.isEmpty() ? QCoreApplication::translate("ThemeChecker", "a picture of another kind") : QCoreApplication::translate("ThemeChecker", "a %1 picture").arg(format);
}

/** A package entry or a stored name as Windows compares them. */
QString windowsName(const QString &name)
{
    return entryNameParts(name).value_or(QStringList{name}).join(u'/').toCaseFolded();
}

class Checker
{
public:
    Checker(const ThemeDocument &doc, bool contents)
        : m_doc(doc), m_typeOne(doc.number(FieldKey::themeType) == 1), m_contents(contents), m_references(referencedFiles(doc))
    {
    }

    void fields()
    {
        droppedSections();
        for (const ThemeSection &s : themeSections()) {
            if (!isWritten(m_doc, s))
                continue;
            if (const AnimatedElement *e = animationOf(s))
                numbers(*e);
            for (const FieldSpec &k : s.keys) {
                if (k.rule == KeyRule::Color)
                    color(k.key);
            }
        }
        for (const char *key : writtenTexts(m_doc))
            text(key);
        description();
        for (const FileReference &r : m_references) {
            leavesFolder(r, false);
            if (isAbsoluteThemePath(r.name))
                add(m_typeOne ? Severity::Error : Severity::Warning, "path-absolute", r.key, r.name,
                    QCoreApplication::translate("ThemeChecker", "\"%1\" is an absolute path: it will not exist on the player's machine")
                        .arg(r.name));
        }
    }

    void files()
    {
        for (const FileReference &r : m_references) {
            if (leavesFolder(r, true))
                continue;
            if (r.kind == FileKind::FrameSequence) {
                const AnimatedElement *e = elementWithRoot(r.key);
                const QString caption = elementCaption(e->id);
                for (qsizetype i = 0; i < r.files.size(); ++i)
                    file(r, r.files.at(i), QCoreApplication::translate("ThemeChecker", "Frame %1 of %2").arg(i + 1).arg(caption), e);
            } else if (r.kind != FileKind::ResourcePackage && !r.name.isEmpty()) {
                file(r, r.name, QCoreApplication::translate("ThemeChecker", "%1 \"%2\"").arg(captionOf(r.key), r.name), nullptr);
            }
        }
        if (m_contents && m_typeOne && !m_doc.currentThemeFile().isEmpty())
            packageEntries();
    }

    /** The play button's view of field \a key: its file alone, whether its section is included or not. */
    void played(const QString &key)
    {
        const QString name = m_doc.value(key);
        const FileKind kind = key == QLatin1StringView(FieldKey::midi) ? FileKind::Music : FileKind::WaveSound;
        if (name.isEmpty())
            add(Severity::Error, "file-missing", key, {}, QCoreApplication::translate("ThemeChecker", "%1 names no file to play").arg(captionOf(key)));
        else
            file({key, kind, name, {}, {}, {name}}, name, QCoreApplication::translate("ThemeChecker", "%1 \"%2\"").arg(captionOf(key), name),
                 nullptr);
    }

    Report report()
    {
        // Errors first, each group in the order found.
        std::stable_partition(m_found.problems.begin(), m_found.problems.end(),
                              [](const Problem &p) { return p.severity == Severity::Error; });
        return m_found;
    }

private:
    void add(Severity severity, const char *code, const QString &field, const QString &file, const QString &text)
    {
        m_found.add({severity, text, field, file, QLatin1StringView(code), {}});
    }

    /**
     * Reports a reference that leads out of the folder it is looked up in (a package cannot hold
     * it) once: by its name alone, or also through links on the disk when \a followLinks.
     */
    bool leavesFolder(const FileReference &r, bool followLinks)
    {
        if (m_outside.contains(r.key))
            return true;
        const QString folder = r.kind == FileKind::Music ? m_doc.musicFolder() : m_doc.packageFolder();
        const QString lookIn = followLinks ? folder : QString();
        const auto outside = std::find_if(r.files.cbegin(), r.files.cend(),
                                          [&lookIn](const QString &f) { return leadsOutOfFolder(lookIn, f); });
        if (r.kind == FileKind::ResourcePackage || outside == r.files.cend())
            return false;
        m_outside.insert(r.key);
        add(m_typeOne ? Severity::Error : Severity::Warning, "path-outside", r.key, *outside,
            QCoreApplication::translate("ThemeChecker", "%1 \"%2\" lies outside the folder %3: a package cannot hold it under that name")
                .arg(captionOf(r.key), *outside, QDir::toNativeSeparators(folder)));
        return true;
    }

    void droppedSections()
    {
        for (const ThemeSection &s : themeSections()) {
            if (m_typeOne || !s.typeOneOnly || !m_doc.isOn(QLatin1StringView(s.include)))
                continue;
            add(Severity::Warning, "section-dropped", QLatin1StringView(s.include), {},
                QCoreApplication::translate("ThemeChecker", "A Theme Type 0 file does not store the %1 section: saving drops it")
                    .arg(sectionName(s.id)));
        }
    }

    void numbers(const AnimatedElement &e)
    {
        const Result<FrameSettings> read = readFrameSettings(m_doc, e);
        const FrameSettings &settings = *read;
        bool countRead = true;
        bool startRead = e.startingFrameField != nullptr;
        for (Problem p : read.report().problems) {
            countRead = countRead && p.field != QLatin1StringView(e.frameCountField);
            startRead = startRead && p.field != QLatin1StringView(e.startingFrameField);
            p.code = QStringLiteral("number-invalid");
            m_found.add(p);
        }
        if (!countRead)
            return;
        const qint64 count = frameNumber(settings.frameCount);
        if (e.stillFrameField) {
            const auto still = parseAuthorNumber(m_doc.value(QLatin1StringView(e.stillFrameField)));
            if (!still || *still < 1 || *still > double(count) || std::floor(*still) != *still)
                add(Severity::Error, "number-invalid", QLatin1StringView(e.stillFrameField), {},
                    QCoreApplication::translate("ThemeChecker", "Still frame needs to be a whole number from 1 to %1!").arg(count));
        }
        const qint64 unreached = (stripRowsReached + e.frame.height() - 1) / e.frame.height() + 1;
        if (count >= unreached)
            add(Severity::Warning, "frame-limit", QLatin1StringView(e.frameCountField), {},
                QCoreApplication::translate("ThemeChecker", "%1 frames from frame %2 on lie beyond the reach of a 16-bit strip offset: "
                                                            "the game cannot show them")
                    .arg(elementCaption(e.id))
                    .arg(unreached));
        if (startRead && double(settings.startingFrame) > settings.frameCount)
            add(Severity::Warning, "start-beyond-count", QLatin1StringView(e.startingFrameField), {},
                QCoreApplication::translate("ThemeChecker", "Starting frame %1 lies above the number of frames (%2): the animation stays on "
                                                            "one frame")
                    .arg(settings.startingFrame)
                    .arg(count));
    }

    void color(const char *key)
    {
        // An empty colour is written as white.
        const QString value = m_doc.value(QLatin1StringView(key));
        if (!value.isEmpty() && !colorOfText(value))
            add(Severity::Error, "colour-invalid", QLatin1StringView(key), {},
                QCoreApplication::translate("ThemeChecker", "\"%1\" is no colour: three whole numbers from 0 to 255 separated by commas, "
                                                            "without blanks")
                    .arg(value));
    }

    void text(const char *key)
    {
        const QString value = m_doc.value(QLatin1StringView(key));
        QByteArray bytes;
        qsizetype bad = 0;
        if (!AnsiText::encode(value, &bytes, &bad)) {
            add(Severity::Error, "text-not-ansi", QLatin1StringView(key), {},
                QCoreApplication::translate("ThemeChecker", "The character \"%1\" (U+%2) cannot be stored in a theme file: the theme cannot "
                                                            "be saved")
                    .arg(value.at(bad))
                    .arg(QString::number(value.at(bad).unicode(), 16).toUpper().rightJustified(4, u'0')));
            return;
        }
        // The description is read back whole, not as a value.
        const QString change = qstrcmp(key, FieldKey::description) == 0 ? QString() : readBackChange(value);
        if (!change.isEmpty())
            add(Severity::Warning, "value-changes-on-load", QLatin1StringView(key), {},
                QCoreApplication::translate("ThemeChecker", "The text will not load as written: %1").arg(change));
    }

    void description()
    {
        QString text = m_doc.value(FieldKey::description);
        text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
        const QStringList lines = text.split(u'\n');
        if (lines.contains(descriptionPlaceholder))
            add(Severity::Warning, "description-placeholder", QLatin1StringView(FieldKey::description), {},
                QCoreApplication::translate("ThemeChecker", "The description still holds the line \"%1\" where your own words belong")
                    .arg(descriptionPlaceholder));
        bool inSection = false;
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const ProfileLine kind = profileLineKind(lines.at(i));
            const char *reading = nullptr;
            if (kind == ProfileLine::Section)
                reading = QT_TRANSLATE_NOOP("ThemeChecker", "a section line");
            else if (kind == ProfileLine::Key && inSection)
                reading = QT_TRANSLATE_NOOP("ThemeChecker", "a key of the section above it");
            inSection = inSection || kind == ProfileLine::Section;
            if (reading)
                add(Severity::Warning, "description-key", QLatin1StringView(FieldKey::description), {},
                    QCoreApplication::translate("ThemeChecker", "Description line %1 \"%2\" reads as %3 when the theme loads")
                        .arg(i + 1)
                        .arg(lines.at(i), QCoreApplication::translate("ThemeChecker", reading)));
        }
    }

    void file(const FileReference &r, const QString &stored, const QString &what, const AnimatedElement *element)
    {
        // Found as the previews and play buttons find them.
        const QString folder = r.kind == FileKind::Music ? m_doc.musicFolder() : m_doc.packageFolder();
        const QString path = resolveThemePath(themeFilePath(folder, stored));
        const auto problem = [&](Severity severity, const char *code, const QString &text) {
            add(severity, code, r.key, path, QCoreApplication::translate("ThemeChecker", "%1 %2 (%3)").arg(what, text, path));
        };
        if (!QFileInfo(path).isFile()) {
            problem(Severity::Error, element ? "frame-missing" : "file-missing", QCoreApplication::translate("ThemeChecker", "is missing"));
            return;
        }
        if (!m_contents)
            return;
        switch (r.kind) {
        case FileKind::FrameSequence:
        case FileKind::StillImage: {
            const auto size = LoadingSurface::headerSize(path);
            if (!size) {
                problem(Severity::Error, "image-unreadable", QCoreApplication::translate("ThemeChecker", "cannot be read as an image"));
                break;
            }
            // The previews show what Qt reads; the game reads only these two.
            if (const QString kind = foreignImageKind(path); !kind.isEmpty())
                problem(Severity::Error, "image-format",
                        QCoreApplication::translate("ThemeChecker", "is %1, not a Windows bitmap or JPEG: the game cannot show it").arg(kind));
            if (element && *size != element->frame)
                problem(Severity::Warning, "frame-size",
                        QCoreApplication::translate("ThemeChecker", "is %1x%2 pixels, not %3x%4")
                            .arg(size->width())
                            .arg(size->height())
                            .arg(element->frame.width())
                            .arg(element->frame.height()));
            break;
        }
        case FileKind::WaveSound:
            if (!isPlayableWaveFile(path))
                problem(Severity::Error, "sound-unplayable", QCoreApplication::translate("ThemeChecker", "is no wave file that can be played"));
            break;
        case FileKind::Music:
            if (const SoundError code = SoundSystem::checkMusicFile(path); code != SoundError::None)
                problem(Severity::Error, "music-unplayable",
                        QCoreApplication::translate("ThemeChecker", "cannot be played: %1").arg(SoundSystem::soundErrorText(code)));
            break;
        case FileKind::SkinFile:
        case FileKind::ResourcePackage:
            break;
        }
    }

    void packageEntries()
    {
        const QString package = resourcePackagePath(m_doc.currentThemeFile(), m_doc.value(FieldKey::resourceFile));
        const auto entries = packageEntryNames(package);
        if (!entries)
            return; // the load has said why
        QSet<QString> named;
        for (const FileReference &r : m_references) {
            for (const QString &f : r.files)
                named.insert(windowsName(f));
        }
        const QString field = QLatin1StringView(FieldKey::resourceFile);
        QHash<QString, QString> seen;
        for (const QString &entry : *entries) {
            const QString name = windowsName(entry);
            const QString path = m_doc.packageFolder() + entry;
            if (const auto earlier = seen.constFind(name); earlier != seen.cend())
                add(Severity::Warning, "name-collision", field, path,
                    QCoreApplication::translate("ThemeChecker", "Package entries \"%1\" and \"%2\" differ only in letter case: on Windows "
                                                                "one hides the other")
                        .arg(*earlier, entry));
            else
                seen.insert(name, entry);
            if (!named.contains(name))
                add(Severity::Warning, "file-unused", field, path,
                    QCoreApplication::translate("ThemeChecker", "Package entry \"%1\" is named by no included section").arg(entry));
        }
    }

    const ThemeDocument &m_doc;
    const bool m_typeOne;
    const bool m_contents; // false: files are only looked for, not read
    const QList<FileReference> m_references;
    QSet<QString> m_outside; // keys reported as path-outside
    Report m_found;
};

} // namespace

Report checkTheme(const ThemeDocument &doc)
{
    Checker checker(doc, true);
    checker.fields();
    checker.files();
    return checker.report();
}

Report checkThemeFields(const ThemeDocument &doc)
{
    Checker checker(doc, false);
    checker.fields();
    return checker.report();
}

Report checkThemeFilesExist(const ThemeDocument &doc)
{
    Checker checker(doc, false);
    checker.fields();
    checker.files();
    return checker.report();
}

Report checkBuildFiles(const ThemeDocument &doc, const QString &folder)
{
    QString from = QDir::fromNativeSeparators(folder);
    if (!from.isEmpty() && !from.endsWith(u'/'))
        from += u'/';
    ThemeDocument copy;
    copy.assignFrom(doc);
    copy.setPackageFolder(from, from);
    copy.setMusicFolder(from);
    copy.setCurrentThemeFile({}); // the entries of an older package are not being packed
    Checker checker(copy, true);
    checker.files();
    Report found;
    for (const Problem &p : checker.report().problems) {
        if (p.severity == Severity::Error && p.code != u"file-missing" && p.code != u"frame-missing")
            found.add(p);
    }
    return found;
}

QString playProblem(const ThemeDocument &doc, const QString &key)
{
    Checker checker(doc, true);
    checker.played(key);
    const Report found = checker.report();
    return found.isEmpty() ? QString() : found.problems.constFirst().text;
}

Report checkThemeFile(ThemeDocument &doc, const QString &path, Dialogs &questions, const ExtractOptions &extract)
{
    const LoadReport loaded = loadThemeFile(doc, path, questions, extract);
    doc.setCurrentThemeFile(path);
    Report found;
    for (const Problem &p : loaded.problems) {
        // Notices (where the package went) are no problems of the theme.
        if (p.severity == Severity::Error)
            found.add(p);
    }
    if (!loaded.loaded)
        return found;
    // A loaded theme's errors are its package's: the package folder does not hold its files.
    found.append(found.isEmpty() ? checkTheme(doc) : checkThemeFields(doc));
    return found;
}
