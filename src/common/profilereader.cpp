// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/profilereader.h"

#include "common/ansitext.h"

#include <QFile>
#include <QFileInfo>
#include <QStringView>

namespace {

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

bool isReadableLocation(const QString &location)
{
    if (location.isEmpty())
        return false;
    const QFileInfo info(location);
    return info.isFile() && !info.isHidden() && !info.fileName().startsWith(u'.');
}

} // namespace

QString profileText(const QByteArray &bytes)
{
    // Notepad may have saved the file as UTF-8 with a signature; read it as the author wrote it.
    static const QByteArray utf8Signature("\xEF\xBB\xBF");
    if (bytes.startsWith(utf8Signature))
        return QString::fromUtf8(bytes.sliced(utf8Signature.size()));
    return AnsiText::decode(bytes);
}

ProfileLine profileLineKind(QStringView line)
{
    line = trimBlanks(line);
    if (line.startsWith(u'['))
        return line.contains(u']') ? ProfileLine::Section : ProfileLine::Other;
    if (!line.contains(u'=') || line.startsWith(u';') || line.startsWith(u"//"))
        return ProfileLine::Other;
    return ProfileLine::Key;
}

ProfileFile ProfileFile::open(const QString &location)
{
    ProfileFile profile;
    if (!isReadableLocation(location))
        return profile;
    QFile file(location);
    if (!file.open(QIODevice::ReadOnly))
        return profile;
    QString text = profileText(file.readAll());
    profile.m_read = true;
    // Lines end at CR (old Mac editors), LF or CRLF; the empty lines this leaves never match.
    text.replace(u'\r', u'\n');

    // Entries above the first section line belong to no section and are never found.
    QHash<QString, QString> *section = nullptr;
    for (QStringView line : QStringView(text).split(u'\n')) {
        line = trimBlanks(line);
        const ProfileLine kind = profileLineKind(line);
        if (kind == ProfileLine::Section) {
            // Windows stops at a section's first occurrence: a repeat is skipped whole.
            const QString name = trimBlanks(line.sliced(1, line.indexOf(u']') - 1)).toString().toLower();
            section = profile.m_sections.contains(name) ? nullptr : &profile.m_sections[name];
            continue;
        }
        if (!section || kind != ProfileLine::Key)
            continue;
        const qsizetype equals = line.indexOf(u'=');
        const QString key = trimBlanks(line.first(equals)).toString().toLower();
        if (!section->contains(key))
            section->insert(key, withoutQuotes(trimBlanks(line.sliced(equals + 1))).toString());
    }
    return profile;
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
