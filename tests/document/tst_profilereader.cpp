#include "document/profilereader.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace QTest {
template <> char *toString(const ProfileValue &value)
{
    if (const auto *text = std::get_if<QString>(&value))
        return toString(*text);
    if (const auto *flag = std::get_if<bool>(&value))
        return toString(*flag);
    return toString(std::get<qint32>(value));
}
} // namespace QTest

class ProfileReaderTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<QTemporaryDir> m_dir;

    QString writeFile(const QString &name, const QByteArray &bytes)
    {
        const QString path = m_dir->filePath(name);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }

    static ProfileValue read(const QString &location, const QString &key, const QString &typeLetter,
                             const ProfileValue &defaultValue, qint32 status,
                             const QString &section = QStringLiteral("Theme Info"))
    {
        ProfileValue value = QStringLiteral("stale");
        const qint32 got = readProfileValue(location, section, key, typeLetter, defaultValue, value);
        return got == status ? value : ProfileValue(QStringLiteral("<status %1>").arg(got));
    }

private slots:
    void init()
    {
        m_dir = std::make_unique<QTemporaryDir>();
        QVERIFY(m_dir->isValid());
    }

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

        const QString path = writeFile(QStringLiteral("theme.skt"), file);
        QCOMPARE(read(path, key, QStringLiteral("S"), defaultText, 0, section), ProfileValue(expected));
        QCOMPARE(ProfileFile::open(path).text(section, key, defaultText), expected);
    }

    void integerValues_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("typeLetter");
        QTest::addColumn<qint32>("expected");

        QTest::newRow("digits") << QByteArray("n=44100") << "I" << 44100;
        QTest::newRow("lower-case letter") << QByteArray("n=12") << "b" << 12;
        QTest::newRow("negative") << QByteArray("n=-7") << "D" << -7;
        QTest::newRow("plus sign") << QByteArray("n=+7") << "I" << 7;
        QTest::newRow("leading digits only") << QByteArray("n=8 channels") << "I" << 8;
        QTest::newRow("quoted") << QByteArray("n=\"16\"") << "I" << 16;
        QTest::newRow("not a number") << QByteArray("n=abc") << "I" << 0;
        QTest::newRow("missing") << QByteArray("other=5") << "I" << 0;
        QTest::newRow("wraps at 32 bits") << QByteArray("n=4294967297") << "I" << 1;
    }

    void integerValues()
    {
        QFETCH(QByteArray, line);
        QFETCH(QString, typeLetter);
        QFETCH(qint32, expected);

        const QString path = writeFile(QStringLiteral("skm.ini"), "[Sound Mixer]\r\n" + line + "\r\n");
        QCOMPARE(read(path, QStringLiteral("n"), typeLetter, qint32(99), 0, QStringLiteral("Sound Mixer")),
                 ProfileValue(expected));
    }

    void unreadableLocations_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("missing file") << "absent.skt";
        QTest::newRow("hidden file") << ".hidden.skt";
        QTest::newRow("folder") << "folder";
        QTest::newRow("empty location") << "";
        QTest::newRow("other letter case") << "THEME.SKT";
        QTest::newRow("full root name is a path") << "HKEY_CURRENT_USER";
        QTest::newRow("unlisted root is a path") << "HKPD";
    }

    void unreadableLocations()
    {
        QFETCH(QString, name);
        writeFile(QStringLiteral("theme.skt"), "[Theme Info]\r\nname=Night\r\n");
        writeFile(QStringLiteral(".hidden.skt"), "[Theme Info]\r\nname=Night\r\n");
        QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("folder")));

        const QString location = name.isEmpty() ? name : m_dir->filePath(name);
        QCOMPARE(resolveProfileLocation(location), 0);
        const QString esc = missingValueMarker();
        QCOMPARE(read(location, QStringLiteral("name"), QStringLiteral("S"), esc, ProfileNotFound),
                 ProfileValue(esc));
        const ProfileFile file = ProfileFile::open(location);
        QCOMPARE(file.status(), ProfileNotFound);
        QCOMPARE(file.text(QStringLiteral("Theme Info"), QStringLiteral("name")), esc);
    }

    void registryRootNames_data()
    {
        QTest::addColumn<QString>("location");
        QTest::addColumn<quint32>("handle");
        QTest::newRow("hkcu") << "hkcu" << 0x80000001u;
        QTest::newRow("HKLM") << "HKLM" << 0x80000002u;
        QTest::newRow("hku") << "hku" << 0x80000003u;
        QTest::newRow("HKDD") << "HKDD" << 0x80000006u;
        QTest::newRow("HKCC") << "HKCC" << 0x80000005u;
        QTest::newRow("HkCr") << "HkCr" << 0x80000000u;
    }

    void registryRootNames()
    {
        QFETCH(QString, location);
        QFETCH(quint32, handle);
        QCOMPARE(quint32(resolveProfileLocation(location)), handle);

        // A file of that very name in the working folder must not be read instead.
        QVERIFY(QDir::setCurrent(m_dir->path()));
        writeFile(location, "[Software\\Stakko]\r\nname=file\r\n");
        QCOMPARE(read(location, QStringLiteral("name"), QStringLiteral("S"), QStringLiteral("default"),
                      ProfileNotFound, QStringLiteral("Software\\Stakko")),
                 ProfileValue(QStringLiteral("default")));
    }

    void defaultIsConvertedForTextReads()
    {
        const QString path = writeFile(QStringLiteral("theme.skt"), "[Theme Info]\r\nname=Night\r\n");
        const QString author = QStringLiteral("author");
        QCOMPARE(read(path, author, QStringLiteral("S"), qint32(-3), 0), ProfileValue(QStringLiteral("-3")));
        QCOMPARE(read(path, author, QStringLiteral("s"), true, 0), ProfileValue(QStringLiteral("True")));
        QCOMPARE(read(m_dir->filePath(QStringLiteral("absent")), author, QStringLiteral("S"), false,
                      ProfileNotFound),
                 ProfileValue(false));
    }

    void openedFileReadsLikeSingleReads()
    {
        const QString path = writeFile(QStringLiteral("theme.skt"),
                                       "//Theme\r\n \r\n[Theme Info]\r\nname=Night\r\nbgframecount=6\r\n");
        const ProfileFile file = ProfileFile::open(path);
        QCOMPARE(file.status(), 0);
        QCOMPARE(resolveProfileLocation(path), 1);

        // Changing the file afterwards does not change what the opened file reads.
        writeFile(QStringLiteral("theme.skt"), "[Theme Info]\r\nname=Day\r\n");
        ProfileValue value;
        QCOMPARE(file.read(QStringLiteral("Theme Info"), QStringLiteral("name"), QStringLiteral("S"),
                           missingValueMarker(), value), 0);
        QCOMPARE(std::get<QString>(value), QStringLiteral("Night"));
        QCOMPARE(file.read(QStringLiteral("Theme Info"), QStringLiteral("bgframecount"), QStringLiteral("I"),
                           QString(), value), 0);
        QCOMPARE(std::get<qint32>(value), 6);
    }
};

QTEST_GUILESS_MAIN(ProfileReaderTest)
#include "tst_profilereader.moc"
