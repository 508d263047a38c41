// `stakko-theme check` of a Type 1 theme whose package holds 400 background frames, against
// `stakko-theme dump` of the same theme: both load it and unpack the package, so the ratio is
// what checking adds. Prints the median times and their ratio; the target is at most 1.3.

#include "benchstats.h"

#include "document/themedocument.h"
#include "document/themefilewriter.h"
#include "package/packagewriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <cstdio>
#include <utility>

namespace {

constexpr int frameCount = 400;
constexpr int runs = 7;

/** Frames that compress like drawn art: one colour each, with a band of noise that moves down. */
QStringList drawFrames(const QString &folder)
{
    QRandomGenerator random(7);
    QStringList files;
    for (int n = 1; n <= frameCount; ++n) {
        QImage frame(192, 352, QImage::Format_RGB888);
        frame.fill(QColor::fromHsv(n * 7 % 360, 150, 210));
        const int top = n * 3 % (frame.height() - 40);
        for (int y = top; y < top + 40; ++y)
            random.fillRange(reinterpret_cast<quint32 *>(frame.scanLine(y)), frame.width() * 3 / 4);
        files.append(folder + QStringLiteral("/bg%1.bmp").arg(n));
        frame.save(files.last(), "BMP");
    }
    return files;
}

/** Milliseconds one run of the command line took; negative when it failed. */
double timed(const QStringList &args, const QProcessEnvironment &env, QByteArray *out)
{
    QProcess cli;
    cli.setProcessEnvironment(env);
    QElapsedTimer timer;
    timer.start();
    cli.start(QStringLiteral(STAKKO_CLI_PATH), args);
    if (!cli.waitForFinished(-1) || cli.exitStatus() != QProcess::NormalExit || cli.exitCode() != 0)
        return -1;
    const double ms = double(timer.nsecsElapsed()) / 1e6;
    *out = cli.readAllStandardOutput();
    return ms;
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTemporaryDir work;
    if (!work.isValid() || !QDir(work.path()).mkpath(QStringLiteral("frames")))
        return 1;

    const QString package = work.filePath(QStringLiteral("Frames.zip"));
    QString error;
    if (!writeResourcePackage(package, drawFrames(work.filePath(QStringLiteral("frames"))),
                              work.filePath(QStringLiteral("frames")), &error)) {
        std::fprintf(stderr, "packing failed: %s\n", qUtf8Printable(error));
        return 1;
    }
    ThemeDocument doc;
    doc.resetTheme();
    for (const auto &[key, value] : {std::pair{"resourcefile", "Frames.zip"}, {"includebackground", "1"},
                                     {"bganimated", "1"}, {"bgfilename", "bg"}, {"bgextension", "bmp"},
                                     {"bgframecount", "400"}})
        doc.setValue(ThemeDocument::requireIndex(QLatin1StringView(key)), QLatin1StringView(value));
    const QString theme = work.filePath(QStringLiteral("Frames.skt"));
    if (!writeThemeFile(doc, theme, &error)) {
        std::fprintf(stderr, "writing the theme failed: %s\n", qUtf8Printable(error));
        return 1;
    }
    std::printf("theme: Type 1, package of %d frames 192x352, %.1f MB\n", frameCount,
                double(QFileInfo(package).size()) / 1e6);

    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("TMPDIR"), work.filePath(QStringLiteral("tmp")));
    QDir().mkpath(work.filePath(QStringLiteral("tmp")));
    QList<double> checks;
    QList<double> dumps;
    QByteArray found;
    QByteArray dumped;
    for (int run = 0; run <= runs; ++run) {   // run 0 warms the caches and creates the files
        const double check = timed({QStringLiteral("check"), theme}, env, &found);
        const double dump = timed({QStringLiteral("dump"), theme}, env, &dumped);
        if (check < 0 || dump < 0) {
            std::fprintf(stderr, "a run failed:\n%s", found.constData());
            return 1;
        }
        if (run > 0) {
            checks.append(check);
            dumps.append(dump);
        }
    }

    const double ratio = median(checks) / median(dumps);
    std::printf("check found: %s", found.right(found.size() - found.lastIndexOf('\n', -2) - 1).constData());
    std::printf("stakko-theme check: %.1f ms (median of %d)\n", median(checks), runs);
    std::printf("stakko-theme dump:  %.1f ms (median of %d)\n", median(dumps), runs);
    std::printf("ratio: %.2f (target <= 1.3) %s\n", ratio, ratio <= 1.3 ? "ok" : "SLOWER THAN TARGET");
    return 0;
}
