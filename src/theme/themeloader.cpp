// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/themeloader.h"

#include "common/dialogs.h"
#include "common/numbertext.h"
#include "common/pathlookup.h"
#include "common/profilereader.h"
#include "theme/animatedelement.h"
#include "theme/themedocument.h"
#include "theme/themecolors.h"
#include "theme/themefilewriter.h"
#include "theme/themesections.h"
#include "package/resourcepackage.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <optional>

namespace {

// The game reads the sections in this order, the one place it is kept; the interface comes
// first of all, before the theme type.
const Section typeOneSections[] = {Section::Background, Section::SpecialWindow, Section::InternetBackground,
                                   Section::Blocks, Section::NextWindow};
const Section bothTypesSections[] = {Section::Explosion, Section::Bomb, Section::MiscImages, Section::Colors,
                                     Section::Music, Section::Sounds};

/** A missing key gives the field's reset value; a missing colour white, as an empty one is written. */
QString missingValue(const FieldSpec &k)
{
    return QLatin1StringView(k.rule == KeyRule::Color ? whiteColorText : k.defaultValue);
}

class Loader
{
public:
    Loader(ThemeDocument &doc, const QString &path, Dialogs &dialogs, const ExtractOptions &extract)
        : m_doc(doc), m_path(path), m_dialogs(dialogs), m_extract(extract), m_file(ProfileFile::open(path))
    {
    }

    std::optional<QString> read(const char *key) const
    {
        const QString value = m_file.text(QStringLiteral("Theme Info"), QLatin1StringView(key));
        if (value == missingValueMarker())
            return std::nullopt;
        return value;
    }

    /** Writes a field from a present value (switches take its whole number; others give 0). */
    void set(const char *field, const QString &value)
    {
        const QLatin1StringView key(field);
        if (fieldSpec(key).kind == FieldKind::Text) {
            m_doc.setText(key, value);
            return;
        }
        const std::optional<qint64> n = storedWholeNumber(value);
        m_doc.setNumber(key, n && *n >= 0 && *n <= 2 ? int(*n) : 0);
    }

    void section(Section id)
    {
        const ThemeSection &s = themeSection(id);
        m_doc.setNumber(QLatin1StringView(s.include), 0);
        for (const FieldSpec *k : s.readOrder)
            key(s, *k);
    }

    void key(const ThemeSection &s, const FieldSpec &k)
    {
        const std::optional<QString> value = read(k.key);
        if (value && s.files == FileKind::Music)
            m_doc.setMusicFolder(m_doc.packageFolder());
        set(k.key, value ? *value : missingValue(k));
        if (value)
            m_doc.setNumber(QLatin1StringView(s.include), 1);
        const AnimatedElement *animation = animationOf(s);
        if (animation && qstrcmp(k.key, animation->extensionField) == 0) {
            const QString image = m_doc.value(QLatin1StringView(animation->rootField)) + QStringLiteral("1.")
                + m_doc.value(QLatin1StringView(k.key));
            m_doc.setText(QLatin1StringView(animation->imageField), image);
        }
    }

    bool run()
    {
        // Header
        for (const char *key : {FieldKey::name, FieldKey::developer, FieldKey::version})
            m_doc.setText(QLatin1StringView(key), read(key).value_or(QStringLiteral("Unknown")));

        // Resource package
        const std::optional<QString> resource = read(FieldKey::resourceFile);
        if (resource) {
            m_doc.setText(FieldKey::resourceFile, *resource);
            const QString package = resourcePackagePath(m_path, *resource);
            UnpackReport unpacked;
            if (m_extract.unpack)
                unpacked = extractResourcePackage(package, m_dialogs, m_extract);
            else
                unpacked.location = packageLocationFor(package);
            for (Problem &p : unpacked.problems)
                p.field = QLatin1StringView(FieldKey::resourceFile);
            m_report.append(unpacked);
            m_doc.setPackageFolder(unpacked.location.folder, unpacked.location.tail);
        } else {
            // A theme without a package must not see the previous theme's files.
            m_doc.setPackageFolder(QString(), QString());
        }

        section(Section::Interface);

        // Theme type
        const std::optional<QString> typeText = read(FieldKey::themeType);
        if (!typeText) {
            unreadable(QCoreApplication::translate("ThemeLoader", "Could not load %1.\rLocation: Themetype").arg(m_path));
            return false;
        }
        const std::optional<qint64> type = storedWholeNumber(*typeText);
        if (!type || (*type != 0 && *type != 1)) {
            unreadable(QCoreApplication::translate("ThemeLoader", "Could not load %1.\nIts theme type \"%2\" is not known: "
                                                                  "only Theme Type 0 and Theme Type 1 can be loaded.")
                           .arg(m_path, typeText->trimmed()));
            return false;
        }
        if (*type == 1 && !resource) {
            unreadable(QCoreApplication::translate("ThemeLoader", "Theme Type 1 REQUIRES a Resource File!"), QLatin1StringView(FieldKey::resourceFile));
            return false;
        }
        m_doc.setNumber(FieldKey::themeType, int(*type));

        if (*type == 0) {
            if (const auto skin = read(FieldKey::skinFile)) {
                m_doc.setText(FieldKey::skinFile, *skin);
                set(FieldKey::skinTransparency, read(FieldKey::skinTransparency).value_or(QStringLiteral("0")));
            }
        } else {
            for (Section id : typeOneSections)
                section(id);
        }
        for (Section id : bothTypesSections)
            section(id);

        for (ColorRow row : rowValues<ColorRow>)
            m_doc.setSwatch(rowOf(row), textToColor(m_doc.value(QLatin1StringView(colorKeys[row]))));

        // Not a key: the lines the writer put above the section.
        QFile file(m_path);
        m_doc.setText(FieldKey::description, file.open(QIODevice::ReadOnly) ? storedDescription(file.readAll()) : QString());
        return true;
    }

    void unreadable(const QString &text, const QString &field = {})
    {
        m_report.add({Problem::Severity::Error, text, field, m_path, QStringLiteral("theme-unreadable"), {}});
    }

    /** Loads the file; the report says whether it was a theme and what went wrong. */
    LoadReport load()
    {
        m_report.loaded = run();
        return m_report;
    }

private:
    ThemeDocument &m_doc;
    QString m_path;
    Dialogs &m_dialogs;
    const ExtractOptions &m_extract;
    ProfileFile m_file;
    LoadReport m_report;
};

} // namespace

QString resourcePackagePath(const QString &themePath, const QString &resourceFile)
{
    QString normal = resourceFile;
    normal.replace(u'\\', u'/');
    if (QDir::isAbsolutePath(normal) || isAbsoluteThemePath(resourceFile))
        return resourceFile;
    const qsizetype end = afterLastSeparator(themePath);
    // A bare file name: the theme lies in the current folder.
    const QString folder = end == 0 ? QFileInfo(themePath).absolutePath() : themePath.left(end - 1);
    return folder + QDir::separator() + resourceFile;
}

LoadReport loadThemeFile(ThemeDocument &doc, const QString &path, Dialogs &questions, const ExtractOptions &extract)
{
    return Loader(doc, path, questions, extract).load();
}
