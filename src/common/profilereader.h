// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHash>
#include <QString>

/** Callers pass this one-character text (ESC) as the default; getting it back means "missing". */
inline QString missingValueMarker() { return QString(QChar(27)); }

/** What the reader makes of one line. */
enum class ProfileLine {
    Section, // "[name]", blanks around it allowed
    Key,     // "key=value", stored only below a section line
    Other,   // never read: comments, text, a "[" without its "]"
};

ProfileLine profileLineKind(QStringView line);

/** A file's text as the reader reads it: Windows-1252, or UTF-8 after a UTF-8 signature. */
QString profileText(const QByteArray &bytes);

/**
 * An INI file parsed once, read many times, with the behaviour Windows' profile reader has:
 * section and key matched without regard to case, blanks around key and value dropped,
 * matching single or double quotes removed, at most 254 characters, first occurrence of a key
 * wins, only a section's first occurrence is read, lines end at CR, LF or CRLF, lines that are
 * not "[section]" or "key=value" never match.
 */
class ProfileFile
{
public:
    /**
     * Parses \a location. Anything but an existing, visible regular file (a hidden name, a
     * folder, nothing) reads as an empty profile, as Windows' reader treats it.
     */
    static ProfileFile open(const QString &location);

    /** Whether the file could be read at all. */
    bool isRead() const { return m_read; }

    /** The value of \a key in \a section, or \a defaultText (trailing blanks dropped) when missing. */
    QString text(const QString &section, const QString &key,
                 const QString &defaultText = missingValueMarker()) const;

private:
    bool m_read = false;
    // lower-cased section -> lower-cased key -> raw value (blanks and quotes already dropped)
    QHash<QString, QHash<QString, QString>> m_sections;
};
