// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/themefilewriter.h"

#include "common/safefile.h"

#include "common/ansitext.h"
#include "common/profilereader.h"
#include "theme/themedocument.h"
#include "theme/themesections.h"

#include <QCoreApplication>


namespace {

const QString header = QStringLiteral("//Stakko Theme File - Created by Stakko Theme Maker\u2122");
const QString separator = QStringLiteral(" ");
const QString sectionLine = QStringLiteral("[Theme Info]");
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
            m_error = QCoreApplication::translate("ThemeFileWriter", "The theme cannot be saved: the field \"%1\" holds the character "
                                                                     "\"%2\" (U+%3), which a theme file cannot store. "
                                                                     "Replace it and save again.")
                          .arg(QLatin1StringView(field), QString(c),
                               QStringLiteral("%1").arg(c.unicode(), 4, 16, QChar(u'0')).toUpper());
            return;
        }
        m_bytes.append("\r\n");
    }

    void keyLine(const char *key, const QString &value) { line(QLatin1StringView(key) + u'=' + value, key); }

    void block(const ThemeSection &section)
    {
        if (!isWritten(m_doc, section))
            return;
        line(separator);
        line(QLatin1StringView(section.comment));
        bool previousWritten = false;
        for (const FieldSpec &k : section.keys) {
            QString value = m_doc.value(QLatin1StringView(k.key));
            const bool skip = (k.rule == KeyRule::AfterPrevious && !previousWritten)
                || (k.rule == KeyRule::IfNotEmpty && value.isEmpty());
            previousWritten = !skip;
            if (skip)
                continue;
            if (k.rule == KeyRule::Print)
                value = u' ' + value + u' ';
            if (k.rule == KeyRule::Color && value.isEmpty())
                value = QLatin1StringView(whiteColorText);
            keyLine(k.key, value);
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

Result<QByteArray> themeFileBytes(const ThemeDocument &doc)
{
    const int type = doc.number(FieldKey::themeType);
    if (type != 0 && type != 1)
        return Result<QByteArray>::fail(QCoreApplication::translate("ThemeFileWriter", "The theme type %1 cannot be saved.").arg(type));

    Writer w(doc);
    w.line(header);
    // Typed descriptions break lines with LF alone; the file wants CR LF everywhere.
    QString description = doc.value(FieldKey::description);
    description.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\n', QStringLiteral("\r\n"));
    w.line(description, FieldKey::description);
    w.line(separator);
    w.line(sectionLine);
    w.keyLine(FieldKey::name, w.identity(FieldKey::name));
    w.keyLine(FieldKey::developer, w.identity(FieldKey::developer));
    w.keyLine(FieldKey::version, w.identity(FieldKey::version));
    const ThemeSection &iface = themeSection(Section::Interface); // the others follow it in table order
    if (type == 1) {
        w.keyLine(FieldKey::resourceFile, doc.value(FieldKey::resourceFile));
        w.line(QStringLiteral("themetype=1"));
        w.line(separator);
        w.block(iface);
        w.line(dashes);
        w.line(QStringLiteral("//Theme Type 1 Info"));
        w.line(dashes);
    } else {
        w.line(QStringLiteral("themetype=0"));
        w.line(separator);
        w.line(QStringLiteral("//Theme Type 0 Info"));
        if (!doc.value(FieldKey::skinFile).isEmpty()) {
            w.keyLine(FieldKey::skinFile, doc.value(FieldKey::skinFile));
            w.keyLine(FieldKey::skinTransparency, doc.value(FieldKey::skinTransparency));
        }
        w.block(iface);
    }
    for (const ThemeSection &section : themeSections().subspan(1))
        w.block(section);

    if (!w.m_error.isEmpty())
        return Result<QByteArray>::fail(w.m_error);
    return w.m_bytes;
}

Result<void> writeThemeFile(const ThemeDocument &doc, const QString &path)
{
    Result<QByteArray> bytes = themeFileBytes(doc);
    if (!bytes)
        return bytes.takeReport();

    if (const Result<void> written = writeWholeFile(path, *bytes); !written)
        return Result<void>::fail(QCoreApplication::translate("ThemeFileWriter", "Could not save %1:\n%2").arg(path, written.errorText()), {}, path);
    return {};
}

QString storedDescription(const QByteArray &bytes)
{
    // Lines end at LF; the writer's CR before it is dropped, any other CR belongs to the text.
    QStringList lines = profileText(bytes).split(u'\n');
    for (QString &line : lines) {
        if (line.endsWith(u'\r'))
            line.chop(1);
    }
    const qsizetype section = lines.indexOf(sectionLine);
    if (lines.constFirst() != header || section < 2 || lines.at(section - 1) != separator)
        return {};
    return lines.mid(1, section - 2).join(QStringLiteral("\r\n"));
}
