#include "document/themefilewriter.h"

#include "common/safefile.h"

#include "common/ansitext.h"
#include "document/themedocument.h"


namespace {

enum class Line { Always, IfNotEmpty, Print, Color };

struct KeyLine {
    const char *key;
    Line rule = Line::Always;
    const char *writtenOnlyAfter = nullptr; // switch written only when this image line was
};

struct Block {
    const char *include;
    const char *comment;
    std::initializer_list<KeyLine> keys;
};

// Blocks in the order a Type 1 file holds them (the interface block stands before the banner).
const Block interfaceBlock = {"includeinterface", "//Graphical User Interface",
    {{"ifacemain", Line::IfNotEmpty}, {"ifaceoptions", Line::IfNotEmpty}, {"ifacechat", Line::IfNotEmpty},
     {"ifaceconnect", Line::IfNotEmpty}, {"ifaceserver", Line::IfNotEmpty}, {"ifacethemes", Line::IfNotEmpty},
     {"ifacemisc", Line::IfNotEmpty}, {"ifacehighscore", Line::IfNotEmpty}, {"ifaceinet", Line::IfNotEmpty},
     {"ifacemenu", Line::IfNotEmpty}, {"ifacemenutransparent", Line::Always, "ifacemenu"}}};

const Block type1Blocks[] = {
    {"includebackground", "//Background",
     {{"bganimated"}, {"bgfilename"}, {"bgextension"}, {"bgframecount"}, {"bgstartingframe"},
      {"bgstillframe"}, {"bgreverseanimation"}, {"bgdelaybetweenframes"}}},
    {"includeblocks", "//Blocks",
     {{"animateblocks"}, {"animatespecials"}, {"animateinetblocks"}, {"animateinetspecials"},
      {"blktransparency"}, {"blkfilename"}, {"blkextension"}, {"blkframecount"}, {"blkstartingframe"},
      {"blkstillframe"}, {"blkreverseanimation"}, {"blkdelaybetweenframes"}}},
    {"includeinetbackground", "//Internet Background",
     {{"inetbganimated"}, {"inetbgfilename"}, {"inetbgextension"}, {"inetbgframecount"},
      {"inetbgstartingframe"}, {"inetbgstillframe"}, {"inetbgreverseanimation"},
      {"inetbgdelaybetweenframes"}}},
    {"includespecialwindow", "//Special Window",
     {{"specialwindowanimated"}, {"specialwindowfilename"}, {"specialwindowextension"},
      {"specialwindowframecount"}, {"specialwindowstartingframe"}, {"specialwindowstillframe"},
      {"specialwindowreverseanimation"}, {"specialwindowdelaybetweenframes"}}},
    {"includenextwindow", "//Next Block Window",
     {{"nextblkanimated"}, {"nextblkfilename"}, {"nextblkextension"}, {"nextblkframecount"},
      {"nextblkstartingframe"}, {"nextblkstillframe"}, {"nextblkreverseanimation"},
      {"nextblkdelaybetweenframes"}}},
    {"includeexplosion", "//Block Explosion",
     {{"explodetransparency", Line::Print}, {"explodefilename"}, {"explodefileextension"},
      {"explodeframecount"}, {"explodedelaybetweenframes"}}},
    {"includebomb", "//Block Bomb",
     {{"Bombtransparency", Line::Print}, {"Bombfilename"}, {"bombfileextension"},
      {"Bombframecount"}, {"Bombdelaybetweenframes"}}},
    {"includemiscimages", "//Miscellaneous Images",
     {{"door1", Line::IfNotEmpty}, {"door2", Line::IfNotEmpty}, {"internetdoor", Line::IfNotEmpty},
      {"winimg", Line::IfNotEmpty}, {"wintransparent", Line::Always, "winimg"},
      {"inetwinimg", Line::IfNotEmpty}, {"inetwintransparent", Line::Always, "inetwinimg"},
      {"heightled", Line::IfNotEmpty}, {"warning", Line::IfNotEmpty}, {"teamfont", Line::IfNotEmpty}}},
    {"includecolors", "//Colors",
     {{"colortitle", Line::Color}, {"colorfields", Line::Color}, {"coloroptions", Line::Color},
      {"colortheme", Line::Color}, {"colorserver", Line::Color}, {"colorconnect", Line::Color},
      {"colorinternet", Line::Color}, {"colorhighscoretitle", Line::Color},
      {"colorhighscorenormal", Line::Color}, {"colorhighscorefirst", Line::Color},
      {"colorhighscoresecond", Line::Color}, {"colorhighscorethird", Line::Color}}},
};

const Block musicBlock = {"includemusic", "//Music", {{"midi", Line::IfNotEmpty}}};

const Block soundsBlock = {"includesounds", "//Sounds",
    {{"startgame", Line::IfNotEmpty}, {"rotate", Line::IfNotEmpty}, {"drop", Line::IfNotEmpty},
     {"lineclear", Line::IfNotEmpty}, {"tetris", Line::IfNotEmpty}, {"explode", Line::IfNotEmpty},
     {"win", Line::IfNotEmpty}, {"lose", Line::IfNotEmpty}, {"chat", Line::IfNotEmpty},
     {"click", Line::IfNotEmpty}, {"holyshield", Line::IfNotEmpty}}};

const QString separator = QStringLiteral(" ");
const QString dashes = QStringLiteral("//-----------------");

class Writer
{
public:
    explicit Writer(const ThemeDocument &doc) : m_doc(doc) {}

    void line(const QString &text, const char *field = "")
    {
        if (!m_error.isEmpty())
            return;
        qsizetype bad = 0;
        if (!AnsiText::encode(text, &m_bytes, &bad)) {
            const QChar c = text.at(bad);
            m_error = QStringLiteral("The theme cannot be saved: the field \"%1\" holds the character "
                                     "\"%2\" (U+%3), which a theme file cannot store. "
                                     "Replace it and save again.")
                          .arg(QLatin1StringView(field), QString(c),
                               QStringLiteral("%1").arg(c.unicode(), 4, 16, QChar(u'0')).toUpper());
            return;
        }
        m_bytes.append("\r\n");
    }

    void keyLine(const char *key, const QString &value) { line(QLatin1StringView(key) + u'=' + value, key); }

    void block(const Block &block)
    {
        if (!m_doc.isOn(QLatin1StringView(block.include)))
            return;
        line(separator);
        line(QLatin1StringView(block.comment));
        QStringList written;
        for (const KeyLine &k : block.keys) {
            const QLatin1StringView key(k.key);
            QString value = m_doc.value(key);
            if (k.writtenOnlyAfter && !written.contains(QLatin1StringView(k.writtenOnlyAfter)))
                continue;
            if (k.rule == Line::IfNotEmpty && value.isEmpty())
                continue;
            if (k.rule == Line::Print)
                value = u' ' + value + u' ';
            if (k.rule == Line::Color && value.isEmpty())
                value = QStringLiteral("255,255,255");
            keyLine(k.key, value);
            written.append(key);
        }
    }

    QString identity(const char *key) const
    {
        const QString value = m_doc.value(QLatin1StringView(key));
        return value.isEmpty() ? QStringLiteral("Unknown") : value;
    }

    const ThemeDocument &m_doc;
    QByteArray m_bytes;
    QString m_error;
};

} // namespace

bool themeFileBytes(const ThemeDocument &doc, QByteArray *bytes, QString *error)
{
    const int type = doc.number(u"themetype");
    if (type != 0 && type != 1) {
        if (error)
            *error = QStringLiteral("The theme type %1 cannot be saved.").arg(type);
        return false;
    }

    Writer w(doc);
    w.line(QStringLiteral("//Stakko Theme File - Created by Stakko Theme Maker\u2122"));
    // Typed descriptions break lines with LF alone; the file wants CR LF everywhere.
    QString description = doc.value(u"description");
    description.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\n', QStringLiteral("\r\n"));
    w.line(description, "description");
    w.line(separator);
    w.line(QStringLiteral("[Theme Info]"));
    w.keyLine("name", w.identity("name"));
    w.keyLine("developer", w.identity("developer"));
    w.keyLine("version", w.identity("version"));
    if (type == 1) {
        w.keyLine("resourcefile", doc.value(u"resourcefile"));
        w.line(QStringLiteral("themetype=1"));
        w.line(separator);
        w.block(interfaceBlock);
        w.line(dashes);
        w.line(QStringLiteral("//Theme Type 1 Info"));
        w.line(dashes);
        for (const Block &block : type1Blocks)
            w.block(block);
    } else {
        w.line(QStringLiteral("themetype=0"));
        w.line(separator);
        w.line(QStringLiteral("//Theme Type 0 Info"));
        if (!doc.value(u"skinfile").isEmpty()) {
            w.keyLine("skinfile", doc.value(u"skinfile"));
            w.keyLine("skintransparency", doc.value(u"skintransparency"));
        }
        w.block(interfaceBlock);
    }
    w.block(musicBlock);
    w.block(soundsBlock);

    if (!w.m_error.isEmpty()) {
        if (error)
            *error = w.m_error;
        return false;
    }
    *bytes = w.m_bytes;
    return true;
}

bool writeThemeFile(const ThemeDocument &doc, const QString &path, QString *error)
{
    QByteArray bytes;
    if (!themeFileBytes(doc, &bytes, error))
        return false;

    QString reason;
    if (!writeWholeFile(path, bytes, &reason)) {
        if (error)
            *error = QStringLiteral("Could not save %1:\n%2").arg(path, reason);
        return false;
    }
    return true;
}
