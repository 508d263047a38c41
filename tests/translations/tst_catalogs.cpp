// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Every catalog of translated texts, as the build lists them: up to date with its sources and
// complete, each translation keeping its English text's placeholders, accelerator and ending.

#include "common/runprogram.h"
#include "common/testfiles.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>

namespace {

struct Message {
    QString source;
    QString type;             // the translation's type: "" when finished, "unfinished", "vanished", ...
    QStringList translations; // one, or one per plural form
};

/**
 * The text of the element \a xml stands at the start of, with the characters Linguist writes as
 * <byte value="xd"/>; the texts of its <numerusform> elements go to \a forms.
 */
QString textOf(QXmlStreamReader &xml, QStringList *forms = nullptr)
{
    QString text;
    const QString name = xml.name().toString();
    while (!xml.hasError() && (xml.readNext() != QXmlStreamReader::EndElement || xml.name() != name)) {
        if (xml.isCharacters())
            text += xml.text();
        else if (xml.isStartElement() && xml.name() == u"byte")
            text += QChar(xml.attributes().value(QStringLiteral("value")).mid(1).toUInt(nullptr, 16));
        else if (forms && xml.isStartElement() && xml.name() == u"numerusform")
            forms->append(textOf(xml));
    }
    return text;
}

/** The messages of the Qt Linguist file \a bytes; \a error says why it did not parse. */
QList<Message> messagesOf(const QByteArray &bytes, QString *error)
{
    QList<Message> messages;
    QXmlStreamReader xml(bytes);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"message") {
            messages.append(Message());
        } else if (xml.name() == u"source" && !messages.isEmpty()) {
            messages.last().source = textOf(xml);
        } else if (xml.name() == u"translation" && !messages.isEmpty()) {
            Message &message = messages.last();
            message.type = xml.attributes().value(QStringLiteral("type")).toString();
            const QString text = textOf(xml, &message.translations);
            if (message.translations.isEmpty())
                message.translations.append(text);
        }
    }
    if (xml.hasError())
        *error = xml.errorString();
    return messages;
}

/** %1 to %99, %L1 and %n, sorted. */
QStringList placeholders(const QString &text)
{
    static const QRegularExpression placeholder(QStringLiteral("%L?(?:[1-9][0-9]?|n)"));
    QStringList found;
    for (auto it = placeholder.globalMatch(text); it.hasNext();)
        found.append(it.next().captured());
    found.sort();
    return found;
}

/** How many "&X" mark an accelerator; "&&" is a plain ampersand, "& " none. */
int accelerators(const QString &text)
{
    int count = 0;
    for (qsizetype i = 0; i + 1 < text.size(); ++i) {
        if (text.at(i) != u'&')
            continue;
        if (text.at(i + 1) == u'&')
            ++i;
        else if (!text.at(i + 1).isSpace())
            ++count;
    }
    return count;
}

/** The endings a translation keeps: "...", ":" and a line break. */
QString ending(const QString &text)
{
    return QStringLiteral("%1%2%3")
        .arg(text.endsWith(QStringLiteral("...")) ? QStringLiteral("...") : QString(),
             text.endsWith(u':') ? QStringLiteral(":") : QString(),
             text.endsWith(u'\n') ? QStringLiteral("\\n") : QString());
}

/** What is wrong with \a message's translation; empty when nothing is. */
QStringList faultsOf(const Message &message)
{
    if (!message.type.isEmpty())
        return {QStringLiteral("is %1").arg(message.type)};
    QStringList faults;
    for (const QString &translation : message.translations) {
        if (translation.isEmpty()) {
            faults << QStringLiteral("has no translation");
            continue;
        }
        if (placeholders(translation) != placeholders(message.source))
            faults << QStringLiteral("has the placeholders %1 translated as %2")
                          .arg(placeholders(message.source).join(u' '), placeholders(translation).join(u' '));
        if (accelerators(message.source) != accelerators(translation))
            faults << QStringLiteral("has %1 accelerators, its translation %2")
                          .arg(accelerators(message.source))
                          .arg(accelerators(translation));
        if (ending(message.source) != ending(translation))
            faults << QStringLiteral("ends in \"%1\", its translation in \"%2\"").arg(ending(message.source), ending(translation));
    }
    return faults;
}

} // namespace

class CatalogsTest : public QObject
{
    Q_OBJECT

    const QString m_table = qEnvironmentVariable("STAKKO_BUILD_DIR") + QStringLiteral("/translations/catalogs.txt");

private slots:
    void initTestCase()
    {
        QVERIFY2(QFile::exists(m_table), qPrintable(m_table + QStringLiteral(" is missing: build first")));
        QVERIFY2(QFile::exists(qEnvironmentVariable("STAKKO_LUPDATE")), "STAKKO_LUPDATE names Qt's lupdate");
    }

    void catalogIsCurrentAndComplete_data()
    {
        QTest::addColumn<QString>("ts");
        QTest::addColumn<QStringList>("sources");
        // One line a catalog and language: "TS|SOURCE;SOURCE...".
        for (const QString &line : QString::fromUtf8(readFile(m_table)).split(u'\n', Qt::SkipEmptyParts)) {
            const QString ts = line.section(u'|', 0, 0);
            QTest::newRow(qPrintable(QFileInfo(ts).completeBaseName())) << ts << line.section(u'|', 1).split(u';');
        }
    }

    void catalogIsCurrentAndComplete()
    {
        QFETCH(QString, ts);
        QFETCH(QStringList, sources);
        const QString catalog = QFileInfo(ts).completeBaseName();
        QTemporaryDir dir;
        const QString updated = dir.filePath(QFileInfo(ts).fileName());
        const QByteArray committed = readFile(ts);
        QVERIFY(writeFile(updated, committed));

        const QStringList options = qEnvironmentVariable("STAKKO_LUPDATE_OPTIONS").split(u' ', Qt::SkipEmptyParts);
        const ProgramRun lupdate =
            runProgram(qEnvironmentVariable("STAKKO_LUPDATE"), options + sources + QStringList{QStringLiteral("-ts"), updated});
        QVERIFY2(lupdate.status == 0, lupdate.err.constData());

        QStringList faults;
        QString error;
        for (const Message &message : messagesOf(readFile(updated), &error)) {
            for (const QString &fault : faultsOf(message))
                faults << QStringLiteral("%1: \"%2\" %3").arg(catalog, message.source, fault);
        }
        QVERIFY2(error.isEmpty(), qPrintable(catalog + QStringLiteral(": ") + error));
        if (readFile(updated) != committed)
            faults << QStringLiteral("%1 is out of date with its sources: run the update-translations target").arg(catalog);
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
    }
};

QTEST_GUILESS_MAIN(CatalogsTest)
#include "tst_catalogs.moc"
