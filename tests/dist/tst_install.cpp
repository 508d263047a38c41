// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// What cmake --install puts in place, and whether the desktop would take it: the tree, the
// validators, the MIME type, the manual pages against --help, the bash completion, and the user
// manual with its pictures, Sphinx's scripts linked from Debian's libjs-sphinxdoc, a section for
// every problem code, and the installed programs pointing at it.

#include "common/runprogram.h"
#include "common/testfiles.h"
#include "common/usermanual.h"
#include "theme/themefields.h"

#include <QDirIterator>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMimeDatabase>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>

namespace {

const QString appId = QStringLiteral("org.stakko.ThemeMaker");
const QString themeMimeType = QStringLiteral("application/x-stakko-theme");
const int iconSizes[] = {16, 22, 24, 32, 48, 64, 128, 256};
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

/** The commands --help lists: the first word of each entry of its Commands: section. */
QStringList helpCommands(const QString &help)
{
    static const QRegularExpression entry(QStringLiteral("^  ([a-z]+)"));
    QStringList commands;
    bool inSection = false;
    for (const QString &line : help.split(u'\n')) {
        if (line == u"Commands:" || line.isEmpty())
            inSection = !line.isEmpty();
        else if (const auto m = entry.match(line); inSection && m.hasMatch())
            commands << m.captured(1);
    }
    return commands;
}

/** Every option --help mentions: -x or --word after a blank or an opening bracket. */
QStringList helpOptions(const QString &help)
{
    static const QRegularExpression option(QStringLiteral("(?:^|[ \\[(])(--?[a-z][a-z-]*)"),
                                           QRegularExpression::MultilineOption);
    QStringList options;
    for (auto it = option.globalMatch(help); it.hasNext();)
        options << it.next().captured(1);
    options.removeDuplicates();
    options.sort();
    return options;
}

/** The text of a section of a rendered manual page, from its heading to the next one. */
QString manSection(const QString &page, const QString &heading)
{
    const qsizetype start = page.indexOf(u'\n' + heading + u'\n');
    if (start < 0)
        return {};
    static const QRegularExpression nextHeading(QStringLiteral("\n[A-Z]"));
    const qsizetype end = page.indexOf(nextHeading, start + heading.size() + 2);
    return page.mid(start, end < 0 ? -1 : end - start);
}

bool containsWord(const QString &text, const QString &word)
{
    return text.contains(QRegularExpression(QStringLiteral("(?:^|[^\\w-])") + QRegularExpression::escape(word)
                                            + QStringLiteral("(?:$|[^\\w-])")));
}

} // namespace

class InstallTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_destDir;
    QString m_prefix;        // the installed /usr
    QStringList m_installed; // as it was right after the install
    QString m_manual;        // the installed user manual

    QString installed(const QString &path) const { return m_prefix + u'/' + path; }

    QString help(const QString &program)
    {
        const ProgramRun run = runProgram(installed(QStringLiteral("bin/") + program), {QStringLiteral("--help")});
        return run.status == 0 ? QString::fromUtf8(run.out) : QString();
    }

    /** The manual page of \a program as a reader sees it; fails the test on a groff warning. */
    QString renderedManual(const QString &program)
    {
        const ProgramRun source =
            runProgram(QStringLiteral("gzip"), {QStringLiteral("-dc"), installed(QStringLiteral("share/man/man1/%1.1.gz").arg(program))});
        if (source.status != 0)
            return {};
        QTemporaryDir dir;
        const QString roff = dir.filePath(QStringLiteral("page.1"));
        if (!writeFile(roff, source.out))
            return {};
        // ASCII keeps \- a plain hyphen; no hyphenation and long lines keep every word whole.
        const ProgramRun page = runProgram(QStringLiteral("groff"),
            {QStringLiteral("-man"), QStringLiteral("-Tascii"), QStringLiteral("-ww"), QStringLiteral("-rHY=0"),
             QStringLiteral("-rLL=300n"), QStringLiteral("-P-cbou"), roff});
        if (page.status != 0 || !page.err.isEmpty()) {
            qWarning("groff: %s", page.err.constData());
            return {};
        }
        return QString::fromUtf8(page.out);
    }

    /**
     * What the installed completion offers for the words typed so far; the last one is being
     * completed. Typed by a German speaker: the help it reads is the English one all the same.
     */
    QStringList completions(const QStringList &typed)
    {
        const QString program = installed(QStringLiteral("bin/stakko-theme"));
        QString words = program;
        for (const QString &word : typed)
            words += QStringLiteral(" '") + word + u'\'';
        const QString script =
            QStringLiteral("export LC_ALL=de_DE.UTF-8; source '%1'; COMP_WORDS=(%2); COMP_CWORD=%3; _stakko_theme '%4' '%5' ''; "
                           "printf '%s\\n' \"${COMPREPLY[@]}\"")
                .arg(installed(QStringLiteral("share/bash-completion/completions/stakko-theme")), words)
                .arg(typed.size())
                .arg(program, typed.last());
        const ProgramRun run = runProgram(QStringLiteral("bash"), {QStringLiteral("-c"), script});
        QStringList offered = QString::fromUtf8(run.out).split(u'\n', Qt::SkipEmptyParts);
        offered.sort();
        return offered;
    }

private slots:
    void initTestCase()
    {
        const ProgramRun run = installBuild(m_destDir.path());
        QVERIFY2(run.status == 0, run.err.constData());
        m_prefix = m_destDir.path() + QStringLiteral("/usr");
        m_manual = m_destDir.filePath(manualFolder);
        QDirIterator it(m_destDir.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext())
            m_installed << QDir(m_destDir.path()).relativeFilePath(it.next());
        m_installed.sort();
    }

    void treeHoldsEveryFileAndNothingElse()
    {
        QStringList expected{
            QStringLiteral("usr/bin/stakko-theme"),
            QStringLiteral("usr/bin/stakko-theme-maker"),
            QStringLiteral("usr/share/applications/%1.desktop").arg(appId),
            QStringLiteral("usr/share/metainfo/%1.metainfo.xml").arg(appId),
            QStringLiteral("usr/share/mime/packages/%1.xml").arg(appId),
            QStringLiteral("usr/share/man/man1/stakko-theme.1.gz"),
            QStringLiteral("usr/share/man/man1/stakko-theme-maker.1.gz"),
            QStringLiteral("usr/share/bash-completion/completions/stakko-theme"),
            QStringLiteral("usr/share/doc/stakko-theme-maker/changelog.gz"),
            QStringLiteral("usr/share/doc/stakko-theme-maker/copyright"),
            QStringLiteral("usr/share/icons/hicolor/scalable/apps/%1.svg").arg(appId),
            QStringLiteral("usr/share/icons/hicolor/scalable/mimetypes/application-x-stakko-theme.svg"),
        };
        for (const int size : iconSizes) {
            expected << QStringLiteral("usr/share/icons/hicolor/%1x%1/apps/%2.png").arg(size).arg(appId)
                     << QStringLiteral("usr/share/icons/hicolor/%1x%1/mimetypes/application-x-stakko-theme.png").arg(size);
        }
        // Every catalog the build compiled.
        const QDir catalogs(qEnvironmentVariable("STAKKO_BUILD_DIR") + QStringLiteral("/translations/qm"));
        for (const QString &name : catalogs.entryList({QStringLiteral("*.qm")}, QDir::Files))
            expected << QStringLiteral("usr/share/stakko-theme-maker/translations/") + name;
        QVERIFY(!catalogs.isEmpty());
        expected.sort();
        // The user manual's own test looks at its pages.
        static const QRegularExpression manualPage(QStringLiteral("^usr/share/doc/[^/]+/manual/"));
        QStringList outsideManual = m_installed;
        outsideManual.removeIf([](const QString &path) { return manualPage.match(path).hasMatch(); });
        QCOMPARE(outsideManual, expected);
    }

    void iconsAreDrawnAtTheirSize()
    {
        for (const QString &path : std::as_const(m_installed)) {
            static const QRegularExpression sized(QStringLiteral("/(\\d+)x\\1/"));
            const auto m = sized.match(path);
            if (!m.hasMatch())
                continue;
            QImageReader reader(m_destDir.filePath(path));
            QCOMPARE(reader.format(), QByteArray("png"));
            const QImage image = reader.read();
            const int size = m.captured(1).toInt();
            QCOMPARE(image.size(), QSize(size, size));
            QVERIFY2(image.hasAlphaChannel() && image.pixelColor(0, 0).alpha() == 0, qPrintable(path));
        }
    }

    void validatorsAccept_data()
    {
        QTest::addColumn<QString>("tool");
        QTest::addColumn<QByteArray>("package");
        QTest::addColumn<QStringList>("args");
        QTest::newRow("desktop entry") << "desktop-file-validate" << QByteArray("desktop-file-utils")
                                       << QStringList{QStringLiteral("share/applications/%1.desktop").arg(appId)};
        QTest::newRow("metainfo") << "appstreamcli" << QByteArray("appstream")
                                  << QStringList{"validate", "--no-net", QStringLiteral("share/metainfo/%1.metainfo.xml").arg(appId)};
        QTest::newRow("MIME type") << "update-mime-database" << QByteArray("shared-mime-info")
                                   << QStringList{"-V", "share/mime"};
    }

    void validatorsAccept()
    {
        QFETCH(QString, tool);
        QFETCH(QByteArray, package);
        QFETCH(QStringList, args);
        if (const QByteArray why = missingTool(tool, package); !why.isEmpty())
            QSKIP(why.constData());
        args.last() = installed(args.last());
        const ProgramRun run = runProgram(tool, args);
        QVERIFY2(run.status == 0, run.out + run.err);
        // Hints and warnings count too: a desktop shows what they name.
        QVERIFY2(!run.err.contains("warning") && !run.out.contains("hint:") && !run.out.contains("W:"),
                 run.out + run.err);
    }

    void themeFilesOpenInTheEditor()
    {
        // Read by Qt as any desktop reads shared-mime-info: the installed XML itself.
        QTemporaryDir home;
        qputenv("XDG_DATA_HOME", QFile::encodeName(home.path()));
        qputenv("XDG_DATA_DIRS", QFile::encodeName(installed(QStringLiteral("share"))));
        const QMimeType type = QMimeDatabase().mimeTypeForFile(QStringLiteral("Glacier.SKT"), QMimeDatabase::MatchExtension);
        QCOMPARE(type.name(), themeMimeType);
        QVERIFY(type.inherits(QStringLiteral("text/plain")));
        QVERIFY(!type.comment().isEmpty());
        QVERIFY(m_installed.contains(QStringLiteral("usr/share/icons/hicolor/48x48/mimetypes/%1.png").arg(type.iconName())));

        QSettings entry(installed(QStringLiteral("share/applications/%1.desktop").arg(appId)), QSettings::IniFormat);
        entry.beginGroup(QStringLiteral("Desktop Entry"));
        QVERIFY(entry.value(QStringLiteral("MimeType")).toString().split(u';').contains(themeMimeType));
        const QStringList exec = entry.value(QStringLiteral("Exec")).toString().split(u' ');
        QVERIFY(m_installed.contains(QStringLiteral("usr/bin/") + exec.value(0)));
        QCOMPARE(exec.mid(1), QStringList{QStringLiteral("%f")});
        QVERIFY(m_installed.contains(QStringLiteral("usr/share/icons/hicolor/scalable/apps/%1.svg")
                                         .arg(entry.value(QStringLiteral("Icon")).toString())));
    }

    void manualsCoverHelp_data()
    {
        QTest::addColumn<QString>("program");
        QTest::newRow("editor") << "stakko-theme-maker";
        QTest::newRow("command line") << "stakko-theme";
    }

    void manualsCoverHelp()
    {
        QFETCH(QString, program);
        if (const QByteArray why = missingTool(QStringLiteral("groff"), "groff-base"); !why.isEmpty())
            QSKIP(why.constData());
        const QString usage = help(program);
        QVERIFY(!usage.isEmpty());
        const QString page = renderedManual(program);
        QVERIFY(!page.isEmpty());
        for (const char *heading : {"NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "EXIT STATUS", "FILES", "ENVIRONMENT"})
            QVERIFY2(!manSection(page, QLatin1StringView(heading)).isEmpty(), heading);

        const QString synopsis = manSection(page, QStringLiteral("SYNOPSIS"));
        for (const QString &command : helpCommands(usage))
            QVERIFY2(synopsis.contains(program + u' ' + command), qPrintable(command));
        const QStringList options = helpOptions(usage);
        QVERIFY(options.contains(QStringLiteral("--version")));
        for (const QString &option : options)
            QVERIFY2(containsWord(manSection(page, QStringLiteral("OPTIONS")), option), qPrintable(option));

        static const QRegularExpression statusLine(QStringLiteral("^Exit status:(.*)$"), QRegularExpression::MultilineOption);
        const QString statuses = statusLine.match(usage).captured(1);
        QVERIFY(!statuses.isEmpty());
        static const QRegularExpression code(QStringLiteral("\\b(\\d) "));
        const QString exitSection = manSection(page, QStringLiteral("EXIT STATUS"));
        for (auto it = code.globalMatch(statuses); it.hasNext();) {
            const QString status = it.next().captured(1);
            QVERIFY2(exitSection.contains(QRegularExpression(QStringLiteral("\n\\s+") + status + QStringLiteral("\\s"))), qPrintable(status));
        }
    }

    void completionOffers_data()
    {
        QTest::addColumn<QStringList>("typed");
        QTest::addColumn<QString>("offers"); // commands, options or keys
        QTest::newRow("commands") << QStringList{""} << "commands";
        QTest::newRow("commands by prefix") << QStringList{"d"} << "commands";
        QTest::newRow("options") << QStringList{"set", "x.skt", "-"} << "options";
        QTest::newRow("long options") << QStringList{"--"} << "options";
        QTest::newRow("field keys") << QStringList{"new", "-s", ""} << "keys";
        QTest::newRow("field keys by prefix") << QStringList{"set", "x.skt", "--set-file", "bg"} << "keys";
        QTest::newRow("files after a command") << QStringList{"check", ""} << "";
    }

    void completionOffers()
    {
        QFETCH(QStringList, typed);
        QFETCH(QString, offers);
        const QString usage = help(QStringLiteral("stakko-theme"));
        QStringList expected;
        if (offers == u"commands")
            expected = helpCommands(usage);
        else if (offers == u"options")
            expected = helpOptions(usage);
        else if (offers == u"keys")
            for (const FieldSpec &field : themeFields())
                expected << QLatin1StringView(field.key) + u'=';
        expected = expected.filter(QRegularExpression(u'^' + QRegularExpression::escape(typed.last())));
        expected.sort();
        QCOMPARE(completions(typed), expected);
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

QTEST_GUILESS_MAIN(InstallTest)
#include "tst_install.moc"
