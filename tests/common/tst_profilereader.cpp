// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/profilereader.h"
#include "common/testfiles.h"

#include <QTemporaryDir>
#include <QTest>

class ProfileReaderTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QString path(const QString &name) const { return m_dir.filePath(name); }

private slots:
    void textValues_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("section");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("defaultText");
        QTest::addColumn<QString>("expected");

        const QString esc = missingValueMarker();
        const QByteArray info = "[Theme Info]\r\n";
        const auto row = [&](const char *name, const QByteArray &file, const QString &key,
                             const QString &expected, const QString &section = QStringLiteral("Theme Info")) {
            QTest::newRow(name) << file << section << key << esc << expected;
        };
        row("plain", info + "name=Night\r\n", "name", "Night");
        row("LF lines, last without end", "[Theme Info]\nname=Night\nversion=2", "version", "2");
        row("CR lines", "[Theme Info]\rname=Night\rversion=2\r", "name", "Night");
        row("CR, LF and CRLF lines mixed", "[Theme Info]\r\nauthor=me\nname=Night\rversion=2\r\n", "version", "2");
        row("empty value is not missing", info + "name=\r\n", "name", "");
        row("absent key gives default exactly", info + "name=x\r\n", "author", esc);
        row("absent section", info + "name=x\r\n", "name", esc, "Sound Mixer");
        row("section and key case", "[THEME info]\r\nColorTitle=1,2,3\r\n", "colortitle", "1,2,3", "theme INFO");
        row("blanks around section, key and value", "  [ Theme Info ]  \r\n \t name \t=  a b \t\r\n", "name", "a b");
        row("double quotes", info + "name=\"  spaced  \"\r\n", "name", "  spaced  ");
        row("single quotes", info + "name='x'\r\n", "name", "x");
        row("unmatched quotes kept", info + "name=\"x'\r\n", "name", "\"x'");
        row("lone quote kept", info + "name=\"\r\n", "name", "\"");
        row("inner quotes kept", info + "name=a \"b\"\r\n", "name", "a \"b\"");
        row("equals inside value", info + "name=a=b\r\n", "name", "a=b");
        row("first key wins", info + "name=first\r\nNAME=second\r\n", "name", "first");
        row("repeated section is not read again", info + "name=1\r\n[Other]\r\nname=o\r\n[theme info]\r\nauthor=me\r\n",
            "author", esc);
        row("repeated section keeps first value", info + "name=first\r\n[Theme Info]\r\nname=second\r\n",
            "name", "first");
        row("key of another section", info + "name=a\r\n[Sound Mixer]\r\noutput=2\r\n", "output", esc);
        row("comment line never matches", info + "//name=hidden\r\n", "//name", esc);
        row("line without equals never matches", info + "name\r\n", "name", esc);
        row("entries above any section never match", "name=description\r\n[Theme Info]\r\n", "name", esc);
        row("unclosed section line keeps the section", info + "[Broken\r\nname=a\r\n", "name", "a");
        row("Windows-1252 text", info + "author=Fran\xe7ois \x80\r\n", "author", QString::fromUtf8("François €"));
        row("UTF-8 with signature", "\xEF\xBB\xBF" + info + "author=Fran\xc3\xa7ois\r\n", "author",
            QString::fromUtf8("François"));
        row("254 characters kept", info + "d=" + QByteArray(254, 'y'), "d", QString(254, u'y'));
        row("255 cut to 254 after quotes are dropped", info + "d=\"" + QByteArray(255, 'z') + "\"", "d",
            QString(254, u'z'));
        QTest::newRow("default loses trailing blanks") << info << "Theme Info" << "name" << " keep \t " << " keep";
    }

    void textValues()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, section);
        QFETCH(QString, key);
        QFETCH(QString, defaultText);
        QFETCH(QString, expected);

        QVERIFY(writeFile(path("theme.skt"), file));
        QCOMPARE(ProfileFile::open(path("theme.skt")).text(section, key, defaultText), expected);
    }

    void unreadableLocations_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("missing file") << "absent.skt";
        QTest::newRow("hidden file") << ".hidden.skt";
        QTest::newRow("folder") << "folder";
        QTest::newRow("empty location") << "";
        QTest::newRow("other letter case") << "THEME.SKT";
    }

    void unreadableLocations()
    {
        QFETCH(QString, name);
        QVERIFY(writeFile(path("theme.skt"), "[Theme Info]\r\nname=Night\r\n"));
        QVERIFY(writeFile(path(".hidden.skt"), "[Theme Info]\r\nname=Night\r\n"));
        QVERIFY(QDir().mkpath(path("folder")));

        const QString location = name.isEmpty() ? name : path(name);
        const ProfileFile file = ProfileFile::open(location);
        QVERIFY(!file.isRead());
        QCOMPARE(file.text(QStringLiteral("Theme Info"), QStringLiteral("name")), missingValueMarker());
    }

    void openedFileKeepsWhatItRead()
    {
        QVERIFY(writeFile(path("theme.skt"), "[Theme Info]\r\nname=Night\r\n"));
        const ProfileFile file = ProfileFile::open(path("theme.skt"));
        QVERIFY(file.isRead());
        QVERIFY(writeFile(path("theme.skt"), "[Theme Info]\r\nname=Day\r\n"));
        QCOMPARE(file.text(QStringLiteral("Theme Info"), QStringLiteral("name")), QStringLiteral("Night"));
    }
};

QTEST_GUILESS_MAIN(ProfileReaderTest)
#include "tst_profilereader.moc"
