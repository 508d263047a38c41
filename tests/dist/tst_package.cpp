// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The Debian package as make package builds it: its name and control fields, the programs
// running from the unpacked tree alone, without the source or build folders, and what a
// distribution checks: lintian, the programs' hardening and the sources' licences.

#include "common/runprogram.h"

#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>
#include <QXmlStreamReader>

namespace {

const QString packageName = QStringLiteral("stakko-theme-maker");

QString firstLine(const QByteArray &bytes)
{
    return QString::fromUtf8(bytes).section(u'\n', 0, 0).trimmed();
}

/** The package names in a Depends field, without versions or alternatives' bars. */
QStringList dependencyNames(const QString &depends)
{
    QStringList names;
    for (const QString &alternatives : depends.split(u','))
        for (const QString &one : alternatives.split(u'|'))
            names << one.trimmed().section(u' ', 0, 0);
    return names;
}

/** The text of the first \a element in the XML file at \a path. */
QString xmlText(const QString &path, const QString &element)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == element)
            return xml.readElementText();
    }
    return {};
}

} // namespace

class PackageTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    QString m_deb;
    QString m_root; // the package unpacked

    QString field(const QString &name)
    {
        return QString::fromUtf8(runProgram(QStringLiteral("dpkg-deb"), {QStringLiteral("-f"), m_deb, name}).out).trimmed();
    }

private slots:
    void initTestCase()
    {
        for (const auto &[tool, package] : {std::pair{"dpkg-deb", "dpkg"}, {"dpkg-shlibdeps", "dpkg-dev"}, {"file", "file"}, {"dpkg-parsechangelog", "dpkg-dev"}}) {
            if (const QByteArray why = missingTool(QLatin1StringView(tool), package); !why.isEmpty())
                QSKIP(why.constData());
        }
        // A package folder of its own, so a make package alongside is left alone.
        const ProgramRun built = runProgram(qEnvironmentVariable("STAKKO_CPACK"),
            {QStringLiteral("--config"), qEnvironmentVariable("STAKKO_BUILD_DIR") + QStringLiteral("/CPackConfig.cmake"),
             QStringLiteral("-B"), m_dir.path()}, QProcessEnvironment::systemEnvironment(), 300000);
        QVERIFY2(built.status == 0, built.out + built.err);
        const QString arch = firstLine(runProgram(QStringLiteral("dpkg"), {QStringLiteral("--print-architecture")}).out);
        m_deb = m_dir.filePath(QStringLiteral("%1_%2_%3.deb").arg(packageName, QStringLiteral(STAKKO_VERSION_STRING), arch));
        QVERIFY2(QFile::exists(m_deb), qPrintable(QDir(m_dir.path()).entryList(QDir::Files).join(u' ')));
        m_root = m_dir.filePath(QStringLiteral("root"));
        const ProgramRun unpacked = runProgram(QStringLiteral("dpkg-deb"), {QStringLiteral("-x"), m_deb, m_root});
        QVERIFY2(unpacked.status == 0, unpacked.err.constData());
    }

    void controlFieldsDescribeThePackage()
    {
        QCOMPARE(field(QStringLiteral("Package")), packageName);
        QCOMPARE(field(QStringLiteral("Version")), QStringLiteral(STAKKO_VERSION_STRING));
        QVERIFY(field(QStringLiteral("Maintainer")).contains(QRegularExpression(QStringLiteral("^.+ <[^@ ]+@[^@ ]+>$"))));
        // A summary line, then the long description.
        QVERIFY(field(QStringLiteral("Description")).count(u'\n') >= 2);
    }

    void dependsCoversEveryLinkedLibrary_data()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QStringList>("loaded");   // at run time, so no link shows them
        QTest::newRow("editor") << "stakko-theme-maker" << QStringList{STAKKO_MIXER_LIBRARY};
        QTest::newRow("command line") << "stakko-theme" << QStringList();
    }

    void dependsCoversEveryLinkedLibrary()
    {
        QFETCH(QString, program);
        QFETCH(QStringList, loaded);
        const QStringList depends = dependencyNames(field(QStringLiteral("Depends")));
        const ProgramRun headers = runProgram(QStringLiteral("objdump"), {QStringLiteral("-p"), m_root + QStringLiteral("/usr/bin/") + program});
        QCOMPARE(headers.status, 0);
        static const QRegularExpression needed(QStringLiteral("^\\s*NEEDED\\s+(\\S+)$"), QRegularExpression::MultilineOption);
        // The libraries of this architecture, as the loader finds them.
        const QString multiarch = firstLine(
            runProgram(QStringLiteral("dpkg-architecture"), {QStringLiteral("-qDEB_HOST_MULTIARCH")}).out);
        QStringList libraries = loaded;
        for (auto it = needed.globalMatch(QString::fromUtf8(headers.out)); it.hasNext();)
            libraries.append(it.next().captured(1));
        QVERIFY(libraries.size() > loaded.size());
        for (const QString &library : libraries) {
            const ProgramRun owner = runProgram(QStringLiteral("dpkg"), {QStringLiteral("-S"), QStringLiteral("*/%1/%2").arg(multiarch, library)});
            QVERIFY2(owner.status == 0, qPrintable(library));
            const QString ownerPackage = firstLine(owner.out).section(u':', 0, 0);
            QVERIFY2(depends.contains(ownerPackage), qPrintable(library + QStringLiteral(" is in ") + ownerPackage));
        }
    }

    void commandLineRunsFromTheUnpackedTree()
    {
        const ProgramRun run = runProgram(m_root + QStringLiteral("/usr/bin/stakko-theme"), {QStringLiteral("--version")});
        QCOMPARE(run.status, 0);
        QCOMPARE(firstLine(run.out), QStringLiteral("stakko-theme " STAKKO_VERSION_STRING));
    }

    void editorWritesTheMetainfoScreenshot()
    {
        const QString metainfo = m_root + QStringLiteral("/usr/share/metainfo/org.stakko.ThemeMaker.metainfo.xml");
        const QString image = xmlText(metainfo, QStringLiteral("image"));
        // A build that names no web page points nowhere: no homepage, no screenshot address.
        const QString address = QStringLiteral(STAKKO_WEB_ADDRESS);
        QCOMPARE(field(QStringLiteral("Homepage")), address);
        QCOMPARE(xmlText(metainfo, QStringLiteral("url")), address);
        QCOMPARE(image.isEmpty(), address.isEmpty());
        const QString published = image.isEmpty() ? QStringLiteral("general.png") : QUrl(image).fileName();
        QVERIFY(published.endsWith(QLatin1String(".png")));

        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        env.insert(QStringLiteral("SDL_AUDIODRIVER"), QStringLiteral("dummy"));
        const QString shots = m_dir.filePath(QStringLiteral("screenshots"));
        const ProgramRun run = runProgram(m_root + QStringLiteral("/usr/bin/stakko-theme-maker"),
            {QStringLiteral("--screenshot"), shots,
             qEnvironmentVariable("STAKKO_SOURCE_DIR") + QStringLiteral("/samples/StakkoSample.skt")}, env, 300000);
        QVERIFY2(run.status == 0, run.err.constData());
        QVERIFY2(QFile::exists(shots + u'/' + published), qPrintable(published));
        // Screenshots leave nothing beside the program.
        QCOMPARE(QDir(m_root + QStringLiteral("/usr/bin")).entryList(QDir::Files),
                 (QStringList{QStringLiteral("stakko-theme"), QStringLiteral("stakko-theme-maker")}));
    }

    void docsHoldCopyrightAndChangelog()
    {
        const QString docs = m_root + QStringLiteral("/usr/share/doc/") + packageName;
        QFile copyright(docs + QStringLiteral("/copyright"));
        QVERIFY(copyright.open(QIODevice::ReadOnly));
        QVERIFY(copyright.readLine().startsWith("Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/"));
        const ProgramRun changelog = runProgram(QStringLiteral("dpkg-parsechangelog"),
            {QStringLiteral("-l"), docs + QStringLiteral("/changelog.gz"), QStringLiteral("-S"), QStringLiteral("Version")});
        QCOMPARE(changelog.status, 0);
        QCOMPARE(firstLine(changelog.out), QStringLiteral(STAKKO_VERSION_STRING));
    }

    /** Every error and warning lintian finds; infos it may give are explained in the README. */
    void lintianFindsNoErrorOrWarning()
    {
        if (const QByteArray why = missingTool(QStringLiteral("lintian"), "lintian"); !why.isEmpty())
            QSKIP(why.constData());
        const ProgramRun run = runProgram(QStringLiteral("lintian"),
            {QStringLiteral("--pedantic"), QStringLiteral("--display-info"), m_deb}, QProcessEnvironment::systemEnvironment(), 600000);
        QVERIFY2(run.status >= 0, run.err.constData());
        QStringList found;
        for (const QString &line : QString::fromUtf8(run.out + run.err).split(u'\n'))
            if (line.startsWith(QLatin1String("E: ")) || line.startsWith(QLatin1String("W: ")))
                found << line;
        QVERIFY2(found.isEmpty(), qPrintable(found.join(u'\n')));
    }

    void programsAreHardened_data()
    {
        QTest::addColumn<QString>("program");
        QTest::newRow("editor") << "stakko-theme-maker";
        QTest::newRow("command line") << "stakko-theme";
    }

    void programsAreHardened()
    {
        QFETCH(QString, program);
        if (const QByteArray why = missingTool(QStringLiteral("hardening-check"), "devscripts"); !why.isEmpty())
            QSKIP(why.constData());
        // Control flow protection is left out: this distribution's C start files carry no IBT/SHSTK
        // note, so no program linked here can (its own programs fail that check too).
        const ProgramRun run = runProgram(QStringLiteral("hardening-check"),
            {QStringLiteral("--nocfprotection"), m_root + QStringLiteral("/usr/bin/") + program});
        QVERIFY2(run.status == 0, run.out + run.err);
    }

    void sourcesStateTheirLicence()
    {
        if (const QByteArray why = missingTool(QStringLiteral("reuse"), "reuse"); !why.isEmpty())
            QSKIP(why.constData());
        const ProgramRun run = runProgram(QStringLiteral("reuse"),
            {QStringLiteral("--root"), qEnvironmentVariable("STAKKO_SOURCE_DIR"), QStringLiteral("lint")});
        QVERIFY2(run.status == 0, run.out + run.err);
    }
};

QTEST_GUILESS_MAIN(PackageTest)
#include "tst_package.moc"
