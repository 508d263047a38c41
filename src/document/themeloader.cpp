#include "document/themeloader.h"

#include "common/dialogs.h"
#include "common/numbertext.h"
#include "common/pathlookup.h"
#include "common/profilereader.h"
#include "document/themedocument.h"
#include "package/resourcepackage.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#include <optional>

namespace {

struct LoadKey {
    const char *field;     // read under this name; keys match without regard to case
    const char *ifMissing; // what the field gets when the key is missing
};

struct LoadSection {
    const char *include;
    const char *imageField;     // rebuilt as root + "1." + extension, or nullptr
    const char *extensionField; // the key after which the image field is rebuilt
    const char *rootField;
    std::initializer_list<LoadKey> keys;
};

const LoadKey interfaceKeys[] = {
    {"ifacemain", ""}, {"ifaceoptions", ""}, {"ifacechat", ""}, {"ifaceconnect", ""},
    {"ifaceserver", ""}, {"ifacethemes", ""}, {"ifacemisc", ""}, {"ifacehighscore", ""},
    {"ifacemenu", ""}, {"ifacemenutransparent", "0"}, {"ifaceinet", ""},
};

const LoadSection type1Sections[] = {
    {"includebackground", "bgimage", "bgextension", "bgfilename",
     {{"bganimated", "0"}, {"bgfilename", ""}, {"bgextension", ""}, {"bgframecount", ""},
      {"bgstartingframe", "1"}, {"bgstillframe", "1"}, {"bgreverseanimation", "0"},
      {"bgdelaybetweenframes", "10"}}},
    {"includespecialwindow", "specialwindowimage", "specialwindowextension", "specialwindowfilename",
     {{"specialwindowanimated", "0"}, {"specialwindowfilename", ""}, {"specialwindowextension", ""},
      {"specialwindowframecount", ""}, {"specialwindowstartingframe", "1"},
      {"specialwindowstillframe", "1"}, {"specialwindowdelaybetweenframes", "10"},
      {"specialwindowreverseanimation", "0"}}},
    // The internet background falls back to empty texts where the others fall back to 1, 1, 10.
    {"includeinetbackground", "inetbgimage", "inetbgextension", "inetbgfilename",
     {{"inetbganimated", "0"}, {"inetbgfilename", ""}, {"inetbgextension", ""},
      {"inetbgframecount", ""}, {"inetbgstartingframe", ""}, {"inetbgstillframe", ""},
      {"inetbgreverseanimation", "0"}, {"inetbgdelaybetweenframes", ""}}},
    {"includeblocks", "blkimage", "blkextension", "blkfilename",
     {{"animateblocks", "0"}, {"animatespecials", "0"}, {"animateinetblocks", "0"},
      {"animateinetspecials", "0"}, {"blkfilename", ""}, {"blkextension", ""},
      {"blkframecount", ""}, {"blkstartingframe", "1"}, {"blkstillframe", "1"},
      {"blkreverseanimation", "0"}, {"blkdelaybetweenframes", "10"}, {"blktransparency", "0"}}},
    {"includenextwindow", "nextblkimage", "nextblkextension", "nextblkfilename",
     {{"nextblkanimated", "0"}, {"nextblkfilename", ""}, {"nextblkextension", ""},
      {"nextblkframecount", ""}, {"nextblkstartingframe", "1"}, {"nextblkstillframe", "1"},
      {"nextblkreverseanimation", "0"}, {"nextblkdelaybetweenframes", "10"}}},
};

const LoadSection bothTypesSections[] = {
    {"includeexplosion", "explodeimage", "explodefileextension", "explodefilename",
     {{"explodefilename", ""}, {"explodefileextension", ""}, {"explodeframecount", ""},
      {"explodedelaybetweenframes", "10"}, {"explodetransparency", "0"}}},
    {"includebomb", "bombimage", "bombfileextension", "Bombfilename",
     {{"Bombfilename", ""}, {"bombfileextension", ""}, {"Bombframecount", ""},
      {"Bombdelaybetweenframes", "10"}, {"Bombtransparency", "0"}}},
    {"includemiscimages", nullptr, nullptr, nullptr,
     {{"heightled", ""}, {"door1", ""}, {"door2", ""}, {"internetdoor", ""}, {"warning", ""},
      {"teamfont", ""}, {"winimg", ""}, {"wintransparent", "0"}, {"inetwinimg", ""},
      {"inetwintransparent", "0"}}},
    {"includecolors", nullptr, nullptr, nullptr,
     {{"colortitle", "255,255,255"}, {"colorfields", "255,255,255"},
      {"coloroptions", "255,255,255"}, {"colortheme", "255,255,255"},
      {"colorserver", "255,255,255"}, {"colorconnect", "255,255,255"},
      {"colorinternet", "255,255,255"}, {"colorhighscorefirst", "255,255,255"},
      {"colorhighscoresecond", "255,255,255"}, {"colorhighscorethird", "255,255,255"},
      {"colorhighscorenormal", "255,255,255"}, {"colorhighscoretitle", "255,255,255"}}},
};

const char *const soundKeys[] = {
    "startgame", "rotate", "drop", "lineclear", "explode", "tetris",
    "win", "lose", "chat", "click", "holyshield",
};

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

    void section(const LoadSection &s)
    {
        const QLatin1StringView include(s.include);
        m_doc.setNumber(include, 0);
        for (const LoadKey &k : s.keys) {
            if (const auto value = read(k.field)) {
                set(k.field, *value);
                m_doc.setNumber(include, 1);
            } else {
                set(k.field, QLatin1StringView(k.ifMissing));
            }
            if (s.extensionField && qstrcmp(k.field, s.extensionField) == 0) {
                m_doc.setText(QLatin1StringView(s.imageField),
                              m_doc.value(QLatin1StringView(s.rootField)) + QStringLiteral("1.")
                                  + m_doc.value(QLatin1StringView(s.extensionField)));
            }
        }
    }

    QString themeFolder() const
    {
        const qsizetype end = afterLastSeparator(m_path);
        if (end == 0) // a bare file name: the theme lies in the current folder
            return QFileInfo(m_path).absolutePath();
        return m_path.left(end - 1);
    }

    QString packagePath(const QString &value) const
    {
        static const QRegularExpression drive(QStringLiteral("^[A-Za-z]:[\\\\/]"));
        QString normal = value;
        normal.replace(u'\\', u'/');
        if (QDir::isAbsolutePath(normal) || drive.match(value).hasMatch())
            return value;
        return themeFolder() + QDir::separator() + value;
    }

    bool run()
    {
        // Header
        for (const char *key : {"name", "developer", "version"})
            m_doc.setText(QLatin1StringView(key), read(key).value_or(QStringLiteral("Unknown")));

        // Resource package
        const std::optional<QString> resource = read("resourcefile");
        if (resource) {
            m_doc.setText(u"resourcefile", *resource);
            const UnpackReport unpacked = extractResourcePackage(packagePath(*resource), m_dialogs, m_extract);
            m_report.append(unpacked);
            m_doc.setPackageFolder(unpacked.location.folder, unpacked.location.tail);
        } else {
            // A theme without a package must not see the previous theme's files.
            m_doc.setPackageFolder(QString(), QString());
        }

        // Interface
        m_doc.setNumber(u"includeinterface", 0);
        for (const LoadKey &k : interfaceKeys) {
            if (const auto value = read(k.field)) {
                set(k.field, *value);
                m_doc.setNumber(u"includeinterface", 1);
            } else {
                set(k.field, QLatin1StringView(k.ifMissing));
            }
        }

        // Theme type
        const std::optional<QString> typeText = read("themetype");
        if (!typeText) {
            m_report.error(QStringLiteral("Could not load ") + m_path + QStringLiteral(".\rLocation: Themetype"));
            return false;
        }
        const std::optional<qint64> type = storedWholeNumber(*typeText);
        if (!type || (*type != 0 && *type != 1)) {
            m_report.error(QStringLiteral("Could not load %1.\nIts theme type \"%2\" is not known: "
                                           "only Theme Type 0 and Theme Type 1 can be loaded.")
                                .arg(m_path, typeText->trimmed()));
            return false;
        }
        if (*type == 1 && !resource) {
            m_report.error(QStringLiteral("Theme Type 1 REQUIRES a Resource File!"), QStringLiteral("resourcefile"));
            return false;
        }
        m_doc.setNumber(u"themetype", int(*type));

        if (*type == 0) {
            if (const auto skin = read("skinfile")) {
                m_doc.setText(u"skinfile", *skin);
                set("skintransparency", read("skintransparency").value_or(QStringLiteral("0")));
            }
        } else {
            for (const LoadSection &s : type1Sections)
                section(s);
        }
        for (const LoadSection &s : bothTypesSections)
            section(s);

        // Music and sounds
        m_doc.setNumber(u"includesounds", 0);
        m_doc.setNumber(u"includemusic", 0);
        if (const auto midi = read("midi")) {
            m_doc.setMusicFolder(m_doc.packageFolder());
            m_doc.setText(u"midi", *midi);
            m_doc.setNumber(u"includemusic", 1);
        } else {
            m_doc.setText(u"midi", QString());
        }
        for (const char *key : soundKeys) {
            const auto value = read(key);
            m_doc.setText(QLatin1StringView(key), value.value_or(QString()));
            if (value)
                m_doc.setNumber(u"includesounds", 1);
        }

        for (int i = 0; i < 12; ++i)
            m_doc.setSwatch(i, textToColor(m_doc.value(QLatin1StringView(colorKeys[i]))));
        return true;
    }

private:
    ThemeDocument &m_doc;
    QString m_path;
    Dialogs &m_dialogs;
    const ExtractOptions &m_extract;
    ProfileFile m_file;

public:
    LoadReport m_report;
};

/** A colour component: a whole number in the 16-bit range, not negative, above 255 counts as 255. */
std::optional<quint32> component(const QString &text)
{
    const std::optional<qint64> n = storedWholeNumber(text);
    if (!n || *n < 0 || *n > 32767)
        return std::nullopt;
    return quint32(std::min<qint64>(*n, 255));
}

} // namespace

LoadReport loadThemeFile(ThemeDocument &doc, const QString &path, Dialogs &questions, const ExtractOptions &extract)
{
    Loader loader(doc, path, questions, extract);
    loader.m_report.loaded = loader.run();
    return loader.m_report;
}

quint32 textToColor(const QString &text)
{
    constexpr quint32 white = 0xFFFFFF;
    const qsizetype first = text.indexOf(u',');
    if (first < 0)
        return white;
    const QString rest = text.mid(first + 1);
    const qsizetype second = rest.indexOf(u',');
    if (second < 0)
        return white;
    const auto red = component(text.left(first));
    const auto green = component(rest.left(second));
    const auto blue = component(rest.mid(second + 1));
    if (!red || !green || !blue)
        return white;
    return *red + 256 * *green + 65536 * *blue;
}

QString colorToText(quint32 colorValue)
{
    const quint32 red = colorValue % 256;
    const quint32 blue = colorValue / 65536;
    const quint32 green = (colorValue - blue * 65536 - red) / 256;
    return QStringLiteral("%1,%2,%3").arg(red).arg(green).arg(blue);
}
