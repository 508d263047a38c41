// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The core's messages follow the language asked for; what the game reads never does.

#include "check/themechecker.h"
#include "common/fieldvalues.h"
#include "common/scripteddialogs.h"
#include "common/testfiles.h"
#include "common/translations.h"
#include "editing/packagebuilder.h"
#include "package/resourcepackage.h"
#include "sound/soundsystem.h"
#include "theme/description.h"
#include "theme/themedocument.h"
#include "theme/themefields.h"
#include "theme/themefilewriter.h"
#include "theme/themeloader.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

namespace {

/** Speaks \a language from now on: English is the texts as written, with no translator at all. */
bool speak(const QString &language)
{
    for (QTranslator *t : QCoreApplication::instance()->findChildren<QTranslator *>()) {
        QCoreApplication::removeTranslator(t);
        delete t;
    }
    return useLanguage(language, {QLatin1StringView(Catalog::core)});
}

QString sampleTheme()
{
    return qEnvironmentVariable("STAKKO_SOURCE_DIR") + QStringLiteral("/samples/StakkoSample.skt");
}

/** What a theme turns into on disk: its file, its generated description and its package's entries. */
struct Written {
    QByteArray theme;
    QString description;
    QStringList entries;
    QString trouble; // the first error on the way; "" when all went well
};

/** The sample theme, every block on, with \a edits and a generated description, saved and built in \a folder. */
Written writeSample(const QString &folder, const Fields &edits)
{
    Written out;
    QDir().mkpath(folder);
    qputenv("TMPDIR", QFile::encodeName(folder));
    ThemeDocument doc;
    ScriptedDialogs dialogs;
    const LoadReport loaded = loadThemeFile(doc, sampleTheme(), dialogs);
    if (!loaded.loaded || loaded.hasErrors()) {
        out.trouble = loaded.lines().join(u'\n');
        return out;
    }
    setFields(doc, edits);
    out.description = generateDescription(doc);
    doc.setText(FieldKey::description, out.description + QStringLiteral("A theme for every language."));
    const QString themePath = folder + QStringLiteral("/theme.skt");
    if (const Result<void> saved = writeThemeFile(doc, themePath); !saved) {
        out.trouble = saved.errorText();
        return out;
    }
    out.theme = readFile(themePath);
    if (doc.number(FieldKey::themeType) != 1)
        return out;
    const QString package = folder + QStringLiteral("/theme.zip");
    const BuildReport built = buildResourcePackage(doc, {doc.packageFolder(), package});
    if (!built.written) {
        out.trouble = built.lines().join(u'\n');
        return out;
    }
    out.entries = packageEntryNames(package).value_or(QStringList{QStringLiteral("<unreadable>")});
    return out;
}

} // namespace

class CoreLanguagesTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;

private slots:
    void cleanup() { speak(QStringLiteral("en")); }

    void gameFilesAreTheSameInEveryLanguage_data()
    {
        QTest::addColumn<Fields>("edits");
        QTest::newRow("Theme Type 1, every block") << Fields{};
        QTest::newRow("Theme Type 0 with a skin")
            << Fields{{"themetype", "0"}, {"skinfile", "skin.bmp"}, {"skintransparency", "1"}};
    }

    void gameFilesAreTheSameInEveryLanguage()
    {
        QFETCH(Fields, edits);
        const QString tag = QString::fromLatin1(QTest::currentDataTag()).replace(u' ', u'-');
        QVERIFY(speak(QStringLiteral("en")));
        const Written english = writeSample(m_dir.filePath(tag + QStringLiteral("-en")), edits);
        QVERIFY2(english.trouble.isEmpty(), qPrintable(english.trouble));
        QVERIFY(speak(QStringLiteral("de")));
        // Only a test that really speaks German shows that nothing of the files is translated.
        QCOMPARE(fieldLabel(fieldIndex("bgframecount")), QStringLiteral("Anzahl der Einzelbilder"));
        const Written german = writeSample(m_dir.filePath(tag + QStringLiteral("-de")), edits);
        QVERIFY2(german.trouble.isEmpty(), qPrintable(german.trouble));

        QVERIFY(english.theme.contains("//Theme Contents:\r\n"));
        QCOMPARE(german.theme, english.theme);
        QCOMPARE(german.description, english.description);
        QCOMPARE(german.entries, english.entries);
    }

    void messagesSpeakTheLanguage_data()
    {
        QTest::addColumn<QString>("what");
        QTest::addColumn<QString>("english"); // "%DIR%" stands for the test's folder
        QTest::addColumn<QString>("german");
        QTest::newRow("loader error") << "unknown type"
            << "Could not load %DIR%/type7.skt.\nIts theme type \"7\" is not known: only Theme Type 0 and Theme "
               "Type 1 can be loaded."
            << "%DIR%/type7.skt konnte nicht geladen werden.\nSein Theme-Typ „7“ ist unbekannt: Nur Theme-Typ 0 "
               "und Theme-Typ 1 lassen sich laden.";
        QTest::newRow("checker problem") << "bad colour"
            << "\"1,2\" is no colour: three whole numbers from 0 to 255 separated by commas, without blanks"
            << "„1,2“ ist keine Farbe: drei ganze Zahlen von 0 bis 255, durch Kommas getrennt, ohne Leerzeichen";
        QTest::newRow("checker problem naming an element") << "missing frame"
            << "Frame 1 of Game Background is missing (%DIR%/bg1.bmp)"
            << "Einzelbild 1 von Spielhintergrund fehlt (%DIR%/bg1.bmp)";
        QTest::newRow("sound error") << "music not found" << "File not found" << "Datei nicht gefunden";
        QTest::newRow("field label") << "label" << "Delay Between Frames" << "Verzögerung zwischen Einzelbildern";
        QTest::newRow("report summary") << "summary" << "2 errors, 1 warning" << "2 Fehler, 1 Warnung";
    }

    void messagesSpeakTheLanguage()
    {
        QFETCH(QString, what);
        QFETCH(QString, english);
        QFETCH(QString, german);
        const QString dir = m_dir.path();
        QVERIFY(writeFile(dir + QStringLiteral("/type7.skt"), "[Theme Info]\r\nthemetype=7\r\n"));
        const auto message = [&]() -> QString {
            ThemeDocument doc;
            doc.resetTheme();
            if (what == u"unknown type") {
                ScriptedDialogs dialogs;
                return firstErrorText(loadThemeFile(doc, dir + QStringLiteral("/type7.skt"), dialogs));
            }
            if (what == u"bad colour") {
                setFields(doc, {{"includecolors", "1"}, {"colortitle", "1,2"}});
                return firstErrorText(checkThemeFields(doc));
            }
            if (what == u"missing frame") {
                setFields(doc, {{"includebackground", "1"}, {"bgfilename", "bg"}, {"bgextension", "bmp"},
                                {"bgframecount", "1"}});
                doc.setPackageFolder(dir + u'/', dir + u'/');
                return firstErrorText(checkThemeFilesExist(doc));
            }
            if (what == u"music not found")
                return SoundSystem::soundErrorText(SoundSystem::checkMusicFile(dir + QStringLiteral("/none.mid")));
            if (what == u"label")
                return fieldLabel(fieldIndex("bgdelaybetweenframes"));
            Report report;
            report.error(QStringLiteral("one"));
            report.error(QStringLiteral("two"));
            report.add({Problem::Severity::Warning, QStringLiteral("three"), {}, {}, {}, {}});
            return report.summary();
        };

        QVERIFY(speak(QStringLiteral("en")));
        QCOMPARE(message(), english.replace(QStringLiteral("%DIR%"), dir));
        QVERIFY(speak(QStringLiteral("de")));
        QCOMPARE(message(), german.replace(QStringLiteral("%DIR%"), dir));
    }
};

QTEST_GUILESS_MAIN(CoreLanguagesTest)
#include "tst_corelanguages.moc"
