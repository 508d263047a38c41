// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The user manual as cmake --install puts it in place: every page with its pictures, Sphinx's
// scripts linked from Debian's libjs-sphinxdoc, a section for every problem code, and the
// installed programs pointing at it.

#include "common/runprogram.h"
#include "common/testfiles.h"
#include "common/usermanual.h"

#include <QDirIterator>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QString manualFolder = QStringLiteral("usr/share/doc/stakko-theme-maker/manual");
const QString systemScripts = QStringLiteral("/usr/share/javascript/sphinxdoc/1.0");

QString fileText(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/**
 * Every problem code the sources can report: the lower-case hyphenated string literals of the
 * folders that report problems ("frame-missing"), which hold no other such literal.
 */
QStringList problemCodesInSources(const QString &sourceDir)
{
    static const QRegularExpression literal(QStringLiteral("\"([a-z]+(?:-[a-z]+)+)\""));
    QStringList codes;
    for (const char *folder : {"check", "theme", "editing", "package"}) {
        QDirIterator it(sourceDir + QStringLiteral("/src/") + QLatin1StringView(folder), {QStringLiteral("*.cpp")},
                        QDir::Files);
        while (it.hasNext()) {
            const QString text = fileText(it.next());
            for (auto m = literal.globalMatch(text); m.hasNext();)
                codes << m.next().captured(1);
        }
    }
    codes.removeDuplicates();
    codes.sort();
    return codes;
}

} // namespace

class ManualTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_destDir;
    QString m_manual; // the installed manual, below the staging folder

private slots:
    void initTestCase()
    {
        const ProgramRun run = installBuild(m_destDir.path());
        QVERIFY2(run.status == 0, run.err.constData());
        m_manual = m_destDir.filePath(manualFolder);
    }

    void everyPageIsInstalledWithItsPictures()
    {
        const QString index = fileText(m_manual + QStringLiteral("/index.html"));
        QVERIFY(index.contains(QStringLiteral("Stakko Theme Maker Manual")));
        static const QRegularExpression pageLink(QStringLiteral("href=\"([a-z-]+\\.html)\""));
        QStringList pages{QStringLiteral("index.html")};
        for (auto m = pageLink.globalMatch(index); m.hasNext();)
            pages << m.next().captured(1);
        pages.removeDuplicates();
        for (const char *page : {"getting-started.html", "editor.html", "previews.html", "sounds.html",
                                 "checking.html", "building.html", "command-line.html", "files.html"})
            QVERIFY2(pages.contains(QLatin1StringView(page)), page);

        // The pictures are the editor's own screenshots, one for every page of the editor at least.
        static const QRegularExpression picture(QStringLiteral("<img [^>]*src=\"([^\"]+)\""));
        int pictures = 0;
        for (const QString &page : std::as_const(pages)) {
            const QString html = fileText(m_manual + u'/' + page);
            QVERIFY2(!html.isEmpty(), qPrintable(page));
            for (auto m = picture.globalMatch(html); m.hasNext(); ++pictures) {
                const QString source = m.next().captured(1);
                QVERIFY2(QFileInfo(m_manual + u'/' + source).size() > 0, qPrintable(page + u' ' + source));
            }
        }
        QVERIFY(pictures >= 6);
        QVERIFY(!QFile::exists(m_manual + QStringLiteral("/.buildinfo")));
        QVERIFY(!QFile::exists(m_manual + QStringLiteral("/_sources")));
    }

    void scriptsAreDebiansNotCopies()
    {
        if (!QFileInfo(systemScripts).isDir())
            QSKIP("libjs-sphinxdoc is not installed (make test installs it)");
        const QString stat = m_manual + QStringLiteral("/_static");
        for (const char *name : {"jquery.js", "underscore.js", "doctools.js", "searchtools.js"}) {
            const QString script = stat + u'/' + QLatin1StringView(name);
            const QString system = systemScripts + u'/' + QLatin1StringView(name);
            QVERIFY2(QFileInfo(script).isSymLink(), name);
            // Relative: below the staging folder it points at the staged /usr, installed at the system's.
            QCOMPARE(QFile::symLinkTarget(script), m_destDir.path() + system);
            QVERIFY(QFileInfo(system).isFile());
        }
    }

    void everyProblemCodeHasASection()
    {
        const QStringList codes = problemCodesInSources(qEnvironmentVariable("STAKKO_SOURCE_DIR"));
        for (const char *known : {"theme-unreadable", "package-missing", "frame-missing", "file-unused"})
            QVERIFY2(codes.contains(QLatin1StringView(known)), known);
        const QString checking = fileText(m_manual + u'/' + checkingPage);
        QVERIFY(!checking.isEmpty());
        for (const QString &code : codes)
            QVERIFY2(checking.contains(QStringLiteral("id=\"%1\"").arg(problemCodeSection(code))), qPrintable(code));
    }

    void installedProgramsPointAtTheInstalledManual()
    {
        QTemporaryDir work;
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        for (const char *variable : {"HOME", "TMPDIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
            env.insert(QLatin1StringView(variable), work.path());
        const QString program = m_destDir.filePath(QStringLiteral("usr/bin/stakko-theme"));
        const QString theme = work.filePath(QStringLiteral("broken.skt"));
        QCOMPARE(runProgram(program, {"new", "-s", "themetype=0", "-s", "includesounds=1", "-s", "rotate=r.wav",
                                      "-o", theme}, env).status, 0);

        const ProgramRun json = runProgram(program, {"check", "--json", theme}, env);
        QCOMPARE(json.status, 1);
        const QJsonObject problem = QJsonDocument::fromJson(json.out).array().first().toObject();
        QCOMPARE(problem.value(QStringLiteral("code")).toString(), QStringLiteral("file-missing"));
        const QUrl address(problem.value(QStringLiteral("manual")).toString());
        QCOMPARE(address.toLocalFile(), QFileInfo(m_manual).canonicalFilePath() + u'/' + checkingPage);
        QCOMPARE(address.fragment(), problemCodeSection(QStringLiteral("file-missing")));

        const ProgramRun text = runProgram(program, {"check", theme}, env);
        QVERIFY2(text.out.endsWith("What each code means and what to do: "
                                   + QUrl::fromLocalFile(address.toLocalFile()).toEncoded() + '\n'),
                 text.out.constData());
    }

    void installedCopyComesBeforeTheBuilds_data()
    {
        QTest::addColumn<bool>("installed");
        QTest::newRow("installed") << true;
        QTest::newRow("build tree") << false;
    }

    void installedCopyComesBeforeTheBuilds()
    {
        QFETCH(bool, installed);
        QTemporaryDir prefix;
        const QString bin = prefix.filePath(QStringLiteral("bin"));
        QVERIFY(QDir().mkpath(bin));
        if (installed)
            QVERIFY(writeFile(installedManualFolder(bin) + QStringLiteral("/index.html"), "<html/>"));
        const QString built = qEnvironmentVariable("STAKKO_BUILD_DIR") + QStringLiteral("/docs/html");
        const QString expected = installed ? installedManualFolder(bin) : built;
        QCOMPARE(userManualFolder(bin), expected);
        QVERIFY(installedManualFolder(bin).startsWith(prefix.path() + QStringLiteral("/share/doc/")));
    }
};

QTEST_GUILESS_MAIN(ManualTest)
#include "tst_manual.moc"
