#include "document/profilereader.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

class ProfileReaderTest : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void textValues_data();
    void textValues();
    void integerValues_data();
    void integerValues();
    void unreadableLocations_data();
    void unreadableLocations();
    void registryRootNames_data();
    void registryRootNames();
    void valueIsDefaultBeforeRead();
    void openedFileReadsLikeSingleReads();

private:
    QString writeFile(const QString &name, const QByteArray &bytes);

    std::unique_ptr<QTemporaryDir> m_dir;
};

QString ProfileReaderTest::writeFile(const QString &name, const QByteArray &bytes)
{
    const QString path = m_dir->filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

void ProfileReaderTest::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    QVERIFY(m_dir->isValid());
}

void ProfileReaderTest::textValues_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("defaultText");
    QTest::addColumn<QString>("expected");

    const QString esc = missingValueMarker();
    const QByteArray info = "[Theme Info]\r\n";
    QTest::newRow("plain") << info + "name=Night\r\n" << "Theme Info" << "name" << esc << "Night";
    QTest::newRow("LF lines") << QByteArray("[Theme Info]\nname=Night\nversion=2\n")
                              << "Theme Info" << "version" << esc << "2";
    QTest::newRow("last line without end") << info + "name=Night" << "Theme Info" << "name"
                                           << esc << "Night";
    QTest::newRow("empty value is not missing") << info + "name=\r\n" << "Theme Info" << "name"
                                                << esc << "";
    QTest::newRow("absent key gives default exactly") << info + "name=x\r\n" << "Theme Info"
                                                      << "author" << esc << esc;
    QTest::newRow("absent section") << info + "name=x\r\n" << "Sound Mixer" << "name" << esc
                                    << esc;
    QTest::newRow("default loses trailing blanks") << info << "Theme Info" << "name"
                                                   << " keep \t " << " keep";
    QTest::newRow("section case") << QByteArray("[THEME info]\r\nname=a\r\n") << "theme INFO"
                                  << "name" << esc << "a";
    QTest::newRow("key case") << info + "ColorTitle=1,2,3\r\n" << "Theme Info" << "colortitle"
                              << esc << "1,2,3";
    QTest::newRow("blanks around key and value") << info + " \t name \t=  a b \t\r\n"
                                                 << "Theme Info" << "name" << esc << "a b";
    QTest::newRow("blanks inside brackets") << QByteArray("  [ Theme Info ]  \r\nname=a\r\n")
                                            << "Theme Info" << "name" << esc << "a";
    QTest::newRow("double quotes") << info + "name=\"  spaced  \"\r\n" << "Theme Info" << "name"
                                   << esc << "  spaced  ";
    QTest::newRow("single quotes") << info + "name='x'\r\n" << "Theme Info" << "name" << esc
                                   << "x";
    QTest::newRow("unmatched quotes kept") << info + "name=\"x'\r\n" << "Theme Info" << "name"
                                           << esc << "\"x'";
    QTest::newRow("lone quote kept") << info + "name=\"\r\n" << "Theme Info" << "name" << esc
                                     << "\"";
    QTest::newRow("inner quotes kept") << info + "name=a \"b\"\r\n" << "Theme Info" << "name"
                                       << esc << "a \"b\"";
    QTest::newRow("equals inside value") << info + "name=a=b\r\n" << "Theme Info" << "name"
                                         << esc << "a=b";
    QTest::newRow("first key wins") << info + "name=first\r\nNAME=second\r\n" << "Theme Info"
                                    << "name" << esc << "first";
    QTest::newRow("repeated section merges, first wins")
        << info + "name=first\r\n[Other]\r\nname=o\r\n[theme info]\r\nname=2\r\nauthor=me\r\n"
        << "Theme Info" << "author" << esc << "me";
    QTest::newRow("repeated section keeps first value")
        << info + "name=first\r\n[Theme Info]\r\nname=second\r\n" << "Theme Info" << "name"
        << esc << "first";
    QTest::newRow("key of another section") << info + "name=a\r\n[Sound Mixer]\r\noutput=2\r\n"
                                            << "Theme Info" << "output" << esc << esc;
    QTest::newRow("comment line never matches") << info + "//name=hidden\r\n" << "Theme Info"
                                                << "//name" << esc << esc;
    QTest::newRow("line without equals never matches") << info + "name\r\n" << "Theme Info"
                                                       << "name" << esc << esc;
    QTest::newRow("entries above any section never match")
        << QByteArray("name=description\r\n[Theme Info]\r\n") << "Theme Info" << "name" << esc
        << esc;
    QTest::newRow("unclosed section line keeps the section")
        << info + "[Broken\r\nname=a\r\n" << "Theme Info" << "name" << esc << "a";
    QTest::newRow("Windows-1252 text") << info + "author=Fran\xe7ois \x80\r\n" << "Theme Info"
                                       << "author" << esc << QString::fromUtf8("François €");
    QTest::newRow("UTF-8 with signature") << "\xEF\xBB\xBF" + info + "author=Fran\xc3\xa7ois\r\n"
                                          << "Theme Info" << "author" << esc
                                          << QString::fromUtf8("François");
    QTest::newRow("300 characters cut to 254") << info + "d=" + QByteArray(300, 'x') + "\r\n"
                                               << "Theme Info" << "d" << esc
                                               << QString(254, u'x');
    QTest::newRow("254 characters kept") << info + "d=" + QByteArray(254, 'y') << "Theme Info"
                                         << "d" << esc << QString(254, u'y');
    QTest::newRow("cut after quotes are dropped")
        << info + "d=\"" + QByteArray(255, 'z') + "\"" << "Theme Info" << "d" << esc
        << QString(254, u'z');
}

void ProfileReaderTest::textValues()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, section);
    QFETCH(QString, key);
    QFETCH(QString, defaultText);
    QFETCH(QString, expected);

    const QString path = writeFile(QStringLiteral("theme.skt"), file);
    ProfileValue value;
    QCOMPARE(readProfileValue(path, section, key, QStringLiteral("S"), defaultText, value), 0);
    QCOMPARE(std::get<QString>(value), expected);
    QCOMPARE(ProfileFile::open(path).text(section, key, defaultText), expected);
}

void ProfileReaderTest::integerValues_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QString>("typeLetter");
    QTest::addColumn<qint32>("expected");

    QTest::newRow("digits") << QByteArray("n=44100") << "I" << 44100;
    QTest::newRow("D letter") << QByteArray("n=12") << "D" << 12;
    QTest::newRow("lower-case letter") << QByteArray("n=12") << "b" << 12;
    QTest::newRow("negative") << QByteArray("n=-7") << "I" << -7;
    QTest::newRow("plus sign") << QByteArray("n=+7") << "I" << 7;
    QTest::newRow("leading digits only") << QByteArray("n=2.5") << "I" << 2;
    QTest::newRow("trailing text") << QByteArray("n=8 channels") << "I" << 8;
    QTest::newRow("quoted") << QByteArray("n=\"16\"") << "I" << 16;
    QTest::newRow("not a number") << QByteArray("n=abc") << "I" << 0;
    QTest::newRow("empty") << QByteArray("n=") << "I" << 0;
    QTest::newRow("missing") << QByteArray("other=5") << "I" << 0;
    QTest::newRow("wraps at 32 bits") << QByteArray("n=4294967297") << "I" << 1;
}

void ProfileReaderTest::integerValues()
{
    QFETCH(QByteArray, line);
    QFETCH(QString, typeLetter);
    QFETCH(qint32, expected);

    const QString path = writeFile(QStringLiteral("skm.ini"), "[Sound Mixer]\r\n" + line + "\r\n");
    ProfileValue value = QStringLiteral("untouched");
    QCOMPARE(readProfileValue(path, QStringLiteral("Sound Mixer"), QStringLiteral("n"), typeLetter,
                              qint32(99), value),
             0);
    QVERIFY(std::holds_alternative<qint32>(value));
    QCOMPARE(std::get<qint32>(value), expected);
}

void ProfileReaderTest::unreadableLocations_data()
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

void ProfileReaderTest::unreadableLocations()
{
    QFETCH(QString, name);

    const QByteArray content = "[Theme Info]\r\nname=Night\r\n";
    writeFile(QStringLiteral("theme.skt"), content);
    writeFile(QStringLiteral(".hidden.skt"), content);
    QVERIFY(QDir(m_dir->path()).mkdir(QStringLiteral("folder")));

    const QString location = name.isEmpty() ? name : m_dir->filePath(name);
    QCOMPARE(resolveProfileLocation(location), 0);
    ProfileValue value = QStringLiteral("default");
    QCOMPARE(readProfileValue(location, QStringLiteral("Theme Info"), QStringLiteral("name"),
                              QStringLiteral("S"), missingValueMarker(), value),
             ProfileNotFound);
    QCOMPARE(std::get<QString>(value), missingValueMarker());
    const ProfileFile file = ProfileFile::open(location);
    QCOMPARE(file.status(), ProfileNotFound);
    QCOMPARE(file.text(QStringLiteral("Theme Info"), QStringLiteral("name")), missingValueMarker());
}

void ProfileReaderTest::registryRootNames_data()
{
    QTest::addColumn<QString>("location");
    QTest::addColumn<quint32>("handle");

    QTest::newRow("hkcu") << "hkcu" << 0x80000001u;
    QTest::newRow("Hkcu") << "Hkcu" << 0x80000001u;
    QTest::newRow("HKCU") << "HKCU" << 0x80000001u;
    QTest::newRow("HKLM") << "HKLM" << 0x80000002u;
    QTest::newRow("hku") << "hku" << 0x80000003u;
    QTest::newRow("HKDD") << "HKDD" << 0x80000006u;
    QTest::newRow("HKCC") << "HKCC" << 0x80000005u;
    QTest::newRow("HkCr") << "HkCr" << 0x80000000u;
}

void ProfileReaderTest::registryRootNames()
{
    QFETCH(QString, location);
    QFETCH(quint32, handle);

    QCOMPARE(quint32(resolveProfileLocation(location)), handle);

    // A file of that very name in the working folder must not be read instead.
    QVERIFY(QDir::setCurrent(m_dir->path()));
    writeFile(location, "[Software\\Stakko]\r\nname=file\r\n");
    ProfileValue value = qint32(5);
    QCOMPARE(readProfileValue(location, QStringLiteral("Software\\Stakko"), QStringLiteral("name"),
                              QStringLiteral("S"), QStringLiteral("default"), value),
             ProfileNotFound);
    QCOMPARE(std::get<QString>(value), QStringLiteral("default"));
}

void ProfileReaderTest::valueIsDefaultBeforeRead()
{
    const QString path = writeFile(QStringLiteral("theme.skt"), "[Theme Info]\r\nname=Night\r\n");
    ProfileValue value = QStringLiteral("stale");
    readProfileValue(path, QStringLiteral("Theme Info"), QStringLiteral("author"),
                     QStringLiteral("S"), qint32(-3), value);
    QCOMPARE(std::get<QString>(value), QStringLiteral("-3"));
    readProfileValue(path, QStringLiteral("Theme Info"), QStringLiteral("author"),
                     QStringLiteral("s"), true, value);
    QCOMPARE(std::get<QString>(value), QStringLiteral("True"));
    readProfileValue(m_dir->filePath(QStringLiteral("absent")), QStringLiteral("Theme Info"),
                     QStringLiteral("name"), QStringLiteral("S"), false, value);
    QCOMPARE(std::get<bool>(value), false);
}

void ProfileReaderTest::openedFileReadsLikeSingleReads()
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
                       missingValueMarker(), value),
             0);
    QCOMPARE(std::get<QString>(value), QStringLiteral("Night"));
    QCOMPARE(file.read(QStringLiteral("Theme Info"), QStringLiteral("bgframecount"),
                       QStringLiteral("I"), QString(), value),
             0);
    QCOMPARE(std::get<qint32>(value), 6);
}

QTEST_GUILESS_MAIN(ProfileReaderTest)
#include "tst_profilereader.moc"
