#pragma once

#include <QHash>
#include <QString>

#include <variant>

/** A value read from a profile: text ("S"), boolean ("B") or 32-bit integer ("D" and others). */
using ProfileValue = std::variant<QString, bool, qint32>;

/** Callers pass this one-character text (ESC) as the default; getting it back means "missing". */
inline QString missingValueMarker() { return QString(QChar(27)); }

/** Status of a read from a location that is neither a registry root nor a readable file. */
inline constexpr qint32 ProfileNotFound = 99;

/**
 * 1 when \a location names an existing, visible regular file; a registry root handle for
 * HKCU, HKLM, HKU, HKDD, HKCC, HKCR (any case; no registry exists here, so reads from them
 * give status 99); 0 otherwise. Hidden files (a name beginning with ".") and folders give 0.
 */
qint32 resolveProfileLocation(const QString &location);

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
    /** Parses \a location; a location that resolveProfileLocation() rejects reads as status 99. */
    static ProfileFile open(const QString &location);

    /** 0 when the file was read, 99 when it could not be. */
    qint32 status() const { return m_status; }

    /**
     * Reads one value like readProfileValue(): \a value receives \a defaultValue first and is
     * overwritten by a successful read. Returns the status.
     */
    qint32 read(const QString &section, const QString &key, const QString &typeLetter,
                const ProfileValue &defaultValue, ProfileValue &value) const;

    /** Text read ("S") with \a defaultText; the marker's default is the usual choice. */
    QString text(const QString &section, const QString &key,
                 const QString &defaultText = missingValueMarker()) const;

private:
    qint32 m_status = ProfileNotFound;
    // lower-cased section -> lower-cased key -> raw value (blanks and quotes already dropped)
    QHash<QString, QHash<QString, QString>> m_sections;
};

/** Reads one value from the file (or registry root) \a location; see ProfileFile::read(). */
qint32 readProfileValue(const QString &location, const QString &section, const QString &key,
                        const QString &typeLetter, const ProfileValue &defaultValue,
                        ProfileValue &value);
