#include "document/profilereader.h"

#include "document/ansitext.h"

#include <QFile>
#include <QFileInfo>
#include <QStringView>

namespace {

struct RegistryRoot {
    const char *name;
    quint32 handle;
};

// Tested in this order; the handles are the values Windows gives these roots.
constexpr RegistryRoot registryRoots[] = {
    {"HKCU", 0x80000001u}, {"HKLM", 0x80000002u}, {"HKU", 0x80000003u},
    {"HKDD", 0x80000006u}, {"HKCC", 0x80000005u}, {"HKCR", 0x80000000u},
};

constexpr qint32 LocationIsFile = 1;

// The reader hands text through a 255-character buffer, terminator included.
constexpr qsizetype MaxValueLength = 254;

bool isBlank(QChar c)
{
    return c == u' ' || c == u'\t';
}

QStringView trimBlanks(QStringView text)
{
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

QString withoutTrailingBlanks(const QString &text)
{
    qsizetype end = text.size();
    while (end > 0 && isBlank(text.at(end - 1)))
        --end;
    return text.left(end);
}

QStringView withoutQuotes(QStringView value)
{
    if (value.size() >= 2 && (value.front() == u'"' || value.front() == u'\'')
        && value.back() == value.front())
        return value.sliced(1, value.size() - 2);
    return value;
}

QString fileText(const QByteArray &bytes)
{
    // Notepad may have saved the file as UTF-8 with a signature; read it as the author wrote it.
    static const QByteArray utf8Signature("\xEF\xBB\xBF");
    if (bytes.startsWith(utf8Signature))
        return QString::fromUtf8(bytes.sliced(utf8Signature.size()));
    return AnsiText::decode(bytes);
}

// Leading digits with an optional sign, wrapping at 32 bits like the Windows integer reader.
qint32 leadingInteger(QStringView text)
{
    bool negative = false;
    if (!text.isEmpty() && (text.front() == u'-' || text.front() == u'+')) {
        negative = text.front() == u'-';
        text = text.sliced(1);
    }
    quint32 magnitude = 0;
    for (const QChar c : text) {
        if (c < u'0' || c > u'9')
            break;
        magnitude = magnitude * 10u + quint32(c.unicode() - u'0');
    }
    return qint32(negative ? 0u - magnitude : magnitude);
}

QString defaultAsText(const ProfileValue &value)
{
    if (const auto *text = std::get_if<QString>(&value))
        return *text;
    if (const auto *flag = std::get_if<bool>(&value))
        return *flag ? QStringLiteral("True") : QStringLiteral("False");
    return QString::number(std::get<qint32>(value));
}

} // namespace

qint32 resolveProfileLocation(const QString &location)
{
    const QString upper = location.toUpper();
    for (const RegistryRoot &root : registryRoots) {
        if (upper == QLatin1StringView(root.name))
            return qint32(root.handle);
    }
    if (location.isEmpty())
        return 0;
    const QFileInfo info(location);
    if (!info.isFile() || info.isHidden() || info.fileName().startsWith(u'.'))
        return 0;
    return LocationIsFile;
}

ProfileFile ProfileFile::open(const QString &location)
{
    ProfileFile profile;
    if (resolveProfileLocation(location) != LocationIsFile)
        return profile;
    QFile file(location);
    if (!file.open(QIODevice::ReadOnly))
        return profile;
    QString text = fileText(file.readAll());
    profile.m_status = 0;
    // Lines end at CR (old Mac editors), LF or CRLF; the empty lines this leaves never match.
    text.replace(u'\r', u'\n');

    // Entries above the first section line belong to no section and are never found.
    QHash<QString, QString> *section = nullptr;
    for (QStringView line : QStringView(text).split(u'\n')) {
        line = trimBlanks(line);
        if (line.startsWith(u'[')) {
            const qsizetype close = line.indexOf(u']');
            if (close < 0)
                continue;
            // Windows stops at a section's first occurrence: a repeat is skipped whole.
            const QString name = trimBlanks(line.sliced(1, close - 1)).toString().toLower();
            section = profile.m_sections.contains(name) ? nullptr : &profile.m_sections[name];
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (!section || equals < 0 || line.startsWith(u';') || line.startsWith(u"//"))
            continue;
        const QString key = trimBlanks(line.first(equals)).toString().toLower();
        if (!section->contains(key))
            section->insert(key, withoutQuotes(trimBlanks(line.sliced(equals + 1))).toString());
    }
    return profile;
}

qint32 ProfileFile::read(const QString &section, const QString &key, const QString &typeLetter,
                         const ProfileValue &defaultValue, ProfileValue &value) const
{
    value = defaultValue;
    if (m_status != 0)
        return m_status;
    if (typeLetter.toUpper() == u"S")
        value = text(section, key, defaultAsText(defaultValue));
    else
        value = leadingInteger(text(section, key, QString()));
    return 0;
}

QString ProfileFile::text(const QString &section, const QString &key,
                          const QString &defaultText) const
{
    const auto foundSection = m_sections.constFind(section.toLower());
    if (foundSection != m_sections.cend()) {
        const auto found = foundSection->constFind(key.toLower());
        if (found != foundSection->cend())
            return found->left(MaxValueLength);
    }
    return withoutTrailingBlanks(defaultText).left(MaxValueLength);
}

qint32 readProfileValue(const QString &location, const QString &section, const QString &key,
                        const QString &typeLetter, const ProfileValue &defaultValue,
                        ProfileValue &value)
{
    return ProfileFile::open(location).read(section, key, typeLetter, defaultValue, value);
}
