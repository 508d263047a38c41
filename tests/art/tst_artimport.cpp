// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "art/artimport.h"
#include "art/soundconvert.h"
#include "common/fieldvalues.h"
#include "common/runprogram.h"
#include "common/scripteddialogs.h"
#include "common/testfiles.h"
#include "theme/animatedelement.h"
#include "theme/themedocument.h"
#include "theme/themefilewriter.h"
#include "theme/themeloader.h"
#include "package/resourcepackage.h"

#include <QImage>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>

namespace {

constexpr QRgb red = 0xffff0000, green = 0xff00ff00, blue = 0xff0000ff, white = 0xffffffff;

QImage filled(QSize size, QRgb color)
{
    return solidImage(size, color, QImage::Format_ARGB32);
}

QImage noise(QSize size, quint32 seed)
{
    QImage image(size, QImage::Format_RGB32);
    QRandomGenerator random(seed);
    for (int y = 0; y < size.height(); ++y)
        random.fillRange(reinterpret_cast<quint32 *>(image.scanLine(y)), size.width());
    return image.convertToFormat(QImage::Format_RGB32);
}

/**
 * An animated GIF of an 8 x 8 canvas in red, green and blue (black is transparent): each frame (x, y, size,
 * colour index, delay in 1/100 s, disposal) drawn with one LZW clear code before every pixel,
 * so no code ever grows past three bits.
 */
struct GifFrame { int x, y, side, color, delay, disposal; };
QByteArray gifBytes(const QList<GifFrame> &frames)
{
    QByteArray out("GIF89a");
    putLittleEndian(out, {{8, 2}, {8, 2}, {0xF1, 1}, {3, 1}, {0, 1}}); // 4-colour table, background black
    out += QByteArray("\xff\x00\x00\x00\xff\x00\x00\x00\xff\x00\x00\x00", 12);
    out += QByteArray("\x21\xff\x0bNETSCAPE2.0\x03\x01\x00\x00\x00", 19);
    for (const GifFrame &f : frames) {
        out += QByteArray("\x21\xf9\x04", 3);
        putLittleEndian(out, {{quint32(f.disposal << 2 | 1), 1}, {quint32(f.delay), 2}, {3, 1}, {0, 1}}); // black is clear
        out += ',';
        putLittleEndian(out, {{quint32(f.x), 2}, {quint32(f.y), 2}, {quint32(f.side), 2}, {quint32(f.side), 2}, {0, 1}});
        QByteArray data;
        quint32 bits = 0;
        int count = 0;
        const auto code = [&](quint32 c) {
            bits |= c << count;
            count += 3;
            while (count >= 8) {
                data += char(bits & 0xff);
                bits >>= 8;
                count -= 8;
            }
        };
        for (int i = 0; i < f.side * f.side; ++i) {
            code(4);
            code(quint32(f.color));
        }
        code(5);
        if (count > 0)
            data += char(bits & 0xff);
        out += '\x02';
        for (qsizetype at = 0; at < data.size(); at += 255) {
            const QByteArray block = data.mid(at, 255);
            out += char(block.size()) + block;
        }
        out += '\0';
    }
    return out + ';';
}

/** The channels, rate, bit depth and 16-bit samples of a PCM wave file; empty samples when it is none. */
struct Wave { int channels = 0, rate = 0, bits = 0, format = 0; QList<qint16> samples; };
Wave readWave(const QByteArray &bytes)
{
    Wave w;
    const auto u16 = [&](qsizetype at) { return int(quint8(bytes[at]) | quint8(bytes[at + 1]) << 8); };
    const auto u32 = [&](qsizetype at) { return qint64(u16(at)) | qint64(u16(at + 2)) << 16; };
    if (!bytes.startsWith("RIFF") || bytes.mid(8, 4) != "WAVE")
        return w;
    for (qsizetype at = 12; at + 8 <= bytes.size(); at += 8 + ((u32(at + 4) + 1) & ~1)) {
        const QByteArray id = bytes.mid(at, 4);
        if (id == "fmt ") {
            w.format = u16(at + 8);
            w.channels = u16(at + 10);
            w.rate = int(u32(at + 12));
            w.bits = u16(at + 22);
        } else if (id == "data") {
            for (qsizetype s = at + 8; s + 1 < at + 8 + u32(at + 4) && s + 1 < bytes.size(); s += 2)
                w.samples.append(qint16(u16(s)));
        }
    }
    return w;
}

/** How often the first channel of \a w crosses zero upwards per second: a sine's pitch. */
double pitch(const Wave &w)
{
    int crossings = 0;
    for (qsizetype i = w.channels; i < w.samples.size(); i += w.channels)
        crossings += w.samples.at(i - w.channels) < 0 && w.samples.at(i) >= 0;
    return crossings * double(w.rate) / (double(w.samples.size()) / w.channels);
}

QRgb pixelAt(const QString &file, QPoint at)
{
    return QImage(file).pixel(at);
}

enum class Source { Gif, WebP, Sheet, Folder, SeveralFiles };

} // namespace

Q_DECLARE_METATYPE(Source)

class ArtImportTest : public QObject
{
    Q_OBJECT

    QTemporaryDir m_dir;
    int m_rows = 0;
    QString m_root;

    /** A saved Type 1 theme whose package holds two background frames, loaded as the editor loads it. */
    void prepare(ThemeDocument &doc, const Fields &edits = {})
    {
        m_root = m_dir.filePath(QStringLiteral("row%1").arg(++m_rows));
        qputenv("TMPDIR", QFile::encodeName(m_root + QStringLiteral("/tmp")));
        QDir().mkpath(m_root + QStringLiteral("/tmp")); // else packages would unpack to the cache folder
        writeFile(m_root + QStringLiteral("/art/bg1.bmp"), imageBytes(filled({192, 352}, red), "BMP"));
        writeFile(m_root + QStringLiteral("/art/bg2.bmp"), imageBytes(filled({192, 352}, green), "BMP"));
        ThemeDocument saved;
        saved.resetTheme();
        setFields(saved, Fields{{"themetype", "1"}, {"resourcefile", "Art.zip"}, {"includebackground", "1"},
                                {"bganimated", "1"}, {"bgfilename", "bg"}, {"bgextension", "bmp"},
                                {"bgframecount", "2"}, {"bgdelaybetweenframes", "70"}} + edits);
        const QString theme = m_root + QStringLiteral("/Theme.skt");
        QVERIFY(writeThemeFile(saved, theme));
        if (saved.number(u"themetype") == 1) {
            QVERIFY(writeResourcePackage(m_root + QStringLiteral("/Art.zip"),
                                         {m_root + QStringLiteral("/art/bg1.bmp"), m_root + QStringLiteral("/art/bg2.bmp")},
                                         m_root + QStringLiteral("/art")));
        }
        ScriptedDialogs dialogs;
        loadThemeFile(doc, theme, dialogs);
        doc.setCurrentThemeFile(theme);
        doc.setDirty(false);
    }

    QString art(const QString &name) const { return m_root + QStringLiteral("/src/") + name; }

    ArtOptions intoArt() const
    {
        ArtOptions options;
        options.folder = m_root + QStringLiteral("/art");
        return options;
    }

    bool entriesContain(const QString &name)
    {
        return packageEntryNames(m_root + QStringLiteral("/Art.zip")).value_or(QStringList()).contains(name);
    }

private slots:
    void initTestCase()
    {
        // Nothing of these tests reaches the real per-user folders.
        qputenv("HOME", QFile::encodeName(m_dir.filePath(QStringLiteral("home"))));
        qputenv("XDG_CACHE_HOME", QFile::encodeName(m_dir.filePath(QStringLiteral("home/.cache"))));
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_dir.filePath(QStringLiteral("home/.config"))));
    }

    void sourceKinds_data()
    {
        QTest::addColumn<Source>("source");
        QTest::addColumn<QString>("key");
        QTest::addColumn<QList<QList<QRgb>>>("frames"); // per frame: the colours at the probes
        QTest::addColumn<QString>("delay"); // "": the element's own, untouched

        // Next block window 77 x 77 from an 8 x 8 canvas at 10x: probes in its top-left and bottom-right quarters.
        QTest::newRow("GIF: partial frames composed, disposal restores the background, median of its delays")
            << Source::Gif << "nextblkimage" << QList<QList<QRgb>>{{red, red}, {green, red}, {white, blue}} << "200";
        QTest::newRow("WebP: every frame and its delays") << Source::WebP << "blkimage"
            << QList<QList<QRgb>>{{red, red}, {green, green}, {blue, blue}} << "300";
        QTest::newRow("sprite sheet: left to right, then top to bottom") << Source::Sheet << "blkimage"
            << QList<QList<QRgb>>{{red, red}, {green, green}, {blue, blue}, {white, white}} << "";
        QTest::newRow("folder: natural order") << Source::Folder << "bgimage"
            << QList<QList<QRgb>>{{red, red}, {green, green}, {blue, blue}} << "";
        QTest::newRow("several files: the order given") << Source::SeveralFiles << "bgimage"
            << QList<QList<QRgb>>{{blue, blue}, {red, red}, {green, green}} << "";
    }

    void sourceKinds()
    {
        QFETCH(Source, source);
        QFETCH(QString, key);
        QFETCH(QList<QList<QRgb>>, frames);
        QFETCH(QString, delay);
        ThemeDocument doc;
        prepare(doc);
        ArtOptions options = intoArt();
        const std::optional<ArtTarget> target = artTarget(key);
        QVERIFY(target);
        const QSize size = target->frameSize();
        QStringList sources;
        switch (source) {
        case Source::Gif:
            writeFile(art("anim.gif"), gifBytes({{0, 0, 8, 0, 10, 1}, {0, 0, 4, 1, 20, 2}, {4, 4, 4, 2, 30, 1}}));
            sources << art("anim.gif");
            options.fit = FrameFit::Pixel;
            options.background = white;
            break;
        case Source::WebP: {
            const QByteArray missing = missingTool(QStringLiteral("convert"), "imagemagick");
            if (!missing.isEmpty())
                QFAIL(missing.constData());
            const QList<QRgb> colors{red, green, blue};
            QStringList args;
            for (int i = 0; i < 3; ++i) {
                writeFile(art(QStringLiteral("%1.png").arg(i)), imageBytes(filled(size, colors.at(i)), "PNG"));
                args << QStringLiteral("-delay") << (i == 0 ? QStringLiteral("10") : QStringLiteral("30")) << art(QStringLiteral("%1.png").arg(i));
            }
            QCOMPARE(runProgram(QStringLiteral("convert"), args << QStringLiteral("-define") << QStringLiteral("webp:lossless=true") << art("anim.webp")).status, 0);
            sources << art("anim.webp");
            break;
        }
        case Source::Sheet: {
            QImage sheet(size.width() * 2, size.height() * 2, QImage::Format_RGB32);
            const QList<QRgb> colors{red, green, blue, white};
            for (int i = 0; i < 4; ++i) {
                for (int y = 0; y < size.height(); ++y) {
                    for (int x = 0; x < size.width(); ++x)
                        sheet.setPixel(x + (i % 2) * size.width(), y + (i / 2) * size.height(), colors.at(i));
                }
            }
            writeFile(art("sheet.png"), imageBytes(sheet, "PNG"));
            sources << art("sheet.png");
            options.sheet = QSize(2, 2);
            break;
        }
        case Source::Folder:
            writeFile(art("f10.png"), imageBytes(filled(size, blue), "PNG"));
            writeFile(art("F2.png"), imageBytes(filled(size, green), "PNG"));
            writeFile(art("f1.png"), imageBytes(filled(size, red), "PNG"));
            writeFile(art("notes.txt"), "not a picture");
            sources << m_root + QStringLiteral("/src");
            break;
        case Source::SeveralFiles:
            writeFile(art("c.png"), imageBytes(filled(size, blue), "PNG"));
            writeFile(art("a.png"), imageBytes(filled(size, red), "PNG"));
            writeFile(art("b.png"), imageBytes(filled(size, green), "PNG"));
            sources << art("c.png") << art("a.png") << art("b.png");
            break;
        }

        const AnimatedElement &e = *target->element;
        if (delay.isEmpty())
            delay = doc.value(e.delayField);
        const ArtImportReport report = importArt(doc, key, sources, options);
        QVERIFY2(report.imported, qPrintable(report.lines().join(u'\n')));
        QCOMPARE(doc.value(e.frameCountField), QString::number(frames.size()));
        QCOMPARE(doc.value(e.delayField), delay);
        QCOMPARE(doc.value(e.includeField), QStringLiteral("1"));
        QVERIFY(!doc.isDirty());
        const QList<QPoint> probes{{size.width() / 4, size.height() / 4}, {size.width() * 3 / 4, size.height() * 3 / 4}};
        for (qsizetype n = 1; n <= frames.size(); ++n) {
            const QString file = m_root + QStringLiteral("/art/") + target->defaultName() + QString::number(n) + QStringLiteral(".bmp");
            const QByteArray bytes = readFile(file);
            QCOMPARE(bytes.mid(28, 2), QByteArray("\x18\x00", 2)); // 24-bit bitmap
            QCOMPARE(QImage(file).size(), size);
            for (qsizetype p = 0; p < probes.size(); ++p)
                QCOMPARE(QColor(pixelAt(file, probes.at(p))).name(), QColor(frames.at(n - 1).at(p)).name());
        }
        // The theme file and the package say the same as the document.
        ThemeDocument again;
        ScriptedDialogs dialogs;
        loadThemeFile(again, doc.currentThemeFile(), dialogs);
        QCOMPARE(again.value(e.frameCountField), doc.value(e.frameCountField));
        const QStringList entries = packageEntryNames(m_root + QStringLiteral("/Art.zip")).value_or(QStringList());
        QVERIFY2(entries.contains(target->defaultName() + QString::number(frames.size()) + QStringLiteral(".bmp")),
                 qPrintable(entries.join(u' ')));
    }

    void fits_data()
    {
        QTest::addColumn<QImage>("picture");
        QTest::addColumn<int>("fit");
        QTest::addColumn<QImage>("expected");

        const QImage exact = noise({192, 64}, 1);
        for (int fit = 0; fit <= int(FrameFit::Pixel); ++fit)
            QTest::addRow("exact size, fit %d: every pixel kept", fit) << exact << fit << exact;
        const QImage small = noise({48, 16}, 2);
        QTest::newRow("pixel: every source pixel an exact 4 x 4 square")
            << small << int(FrameFit::Pixel) << small.scaled(192, 64, Qt::IgnoreAspectRatio, Qt::FastTransformation);
        QImage wide = filled({384, 64}, red);
        for (int y = 0; y < 64; ++y) {
            for (int x = 96; x < 288; ++x)
                wide.setPixel(x, y, green);
        }
        QTest::newRow("fill: the centre cut out") << wide << int(FrameFit::Fill) << filled({192, 64}, green);
        QImage margins = filled({192, 64}, white);
        for (int y = 0; y < 64; ++y) {
            for (int x = 48; x < 144; ++x)
                margins.setPixel(x, y, green);
        }
        QTest::newRow("fit: inside, the rest the background") << filled({96, 64}, green) << int(FrameFit::Fit) << margins;
        QTest::newRow("stretch: the aspect ratio given up") << filled({10, 300}, green) << int(FrameFit::Stretch)
                                                           << filled({192, 64}, green);
        QTest::newRow("alpha flattened onto the background") << filled({192, 64}, 0x00ff0000) << int(FrameFit::Fill)
                                                            << filled({192, 64}, white);
    }

    void fits()
    {
        QFETCH(QImage, picture);
        QFETCH(int, fit);
        QFETCH(QImage, expected);
        const QImage frame = fitFrame(picture, {192, 64}, FrameFit(fit), white);
        QCOMPARE(frame.format(), QImage::Format_RGB888);
        QCOMPARE(frame, expected.convertToFormat(QImage::Format_RGB888));
    }

    void sounds_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("file");
        QTest::addColumn<QStringList>("sox"); // what sox makes it from: rate, channels, encoding options
        QTest::addColumn<int>("rate");
        QTest::addColumn<int>("channels");

        QTest::newRow("float wave at 48000 Hz: resampled to 44100") << "rotate" << "a.wav"
            << QStringList{"-r", "48000", "-c", "2", "-e", "floating-point", "-b", "32"} << 44100 << 2;
        QTest::newRow("FLAC at 22050 Hz: the rate kept") << "drop" << "a.flac"
            << QStringList{"-r", "22050", "-c", "1"} << 22050 << 1;
        QTest::newRow("OGG Vorbis at 11025 Hz") << "holyshield" << "a.ogg"
            << QStringList{"-r", "11025", "-c", "1"} << 11025 << 1;
        QTest::newRow("music: FLAC becomes OGG Vorbis") << "midi" << "a.flac"
            << QStringList{"-r", "44100", "-c", "2"} << 0 << 0;
    }

    void sounds()
    {
        QFETCH(QString, key);
        QFETCH(QString, file);
        QFETCH(QStringList, sox);
        QFETCH(int, rate);
        QFETCH(int, channels);
        const QByteArray missing = missingTool(QStringLiteral("sox"), "sox");
        if (!missing.isEmpty())
            QFAIL(missing.constData());
        ThemeDocument doc;
        prepare(doc);
        QDir().mkpath(art(QString()));
        QCOMPARE(runProgram(QStringLiteral("sox"), QStringList{"-n"} + sox + QStringList{art(file), "synth", "0.5", "sine", "440", "vol", "0.5"}).status, 0);

        const ArtImportReport report = importArt(doc, key, {art(file)}, intoArt());
        QVERIFY2(report.imported, qPrintable(report.lines().join(u'\n')));
        const QByteArray bytes = readFile(m_root + QStringLiteral("/art/") + doc.value(key));
        QVERIFY(entriesContain(doc.value(key)));
        if (key == u"midi") {
            QCOMPARE(doc.value(key), QStringLiteral("midi.ogg"));
            QVERIFY(bytes.startsWith("OggS"));
            return;
        }
        QCOMPARE(doc.value(key), key + QStringLiteral(".wav"));
        const Wave wave = readWave(bytes);
        QCOMPARE(wave.format, 1);
        QCOMPARE(wave.bits, 16);
        QCOMPARE(wave.rate, rate);
        QCOMPARE(wave.channels, channels);
        const double seconds = double(wave.samples.size()) / channels / rate;
        QVERIFY2(std::abs(seconds - 0.5) < 0.01, qPrintable(QString::number(seconds)));
        QVERIFY2(std::abs(pitch(wave) - 440) < 5, qPrintable(QString::number(pitch(wave))));
    }

    void musicTheGamePlaysIsCopied()
    {
        ThemeDocument doc;
        prepare(doc);
        const QByteArray midi("MThd\0\0\0\6\0\0\0\1\0\x60MTrk\0\0\0\4\0\xFF\x2F\0", 26);
        writeFile(art("song.MID"), midi);
        const ArtImportReport report = importArt(doc, QStringLiteral("midi"), {art("song.MID")}, intoArt());
        QVERIFY2(report.imported, qPrintable(report.lines().join(u'\n')));
        QCOMPARE(doc.value(u"midi"), QStringLiteral("midi.mid"));
        QCOMPARE(readFile(m_root + QStringLiteral("/art/midi.mid")), midi);
        QCOMPARE(doc.value(u"includemusic"), QStringLiteral("1"));
    }

    void badInputChangesNothing_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("themetype");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("message");

        QTest::newRow("a picture that does not decode") << "bgimage" << "broken.png" << "1" << "" << "broken.png could not be read";
        QTest::newRow("a source that is not there") << "bgimage" << "gone.png" << "1" << "" << "gone.png does not exist";
        QTest::newRow("a sound that does not decode") << "rotate" << "broken.png" << "1" << "" << "could not be read as a sound";
        QTest::newRow("an animation on a Type 0 theme") << "bgimage" << "good.png" << "0" << "" << "needs Theme Type 1";
        QTest::newRow("a folder in the way of the files") << "bgimage" << "good.png" << "1" << "blocked/bg"
                                                          << "Could not make the folder";
        QTest::newRow("a name climbing out of the folder") << "door1" << "good.png" << "1" << "../door" << "cannot name files";
    }

    void badInputChangesNothing()
    {
        QFETCH(QString, key);
        QFETCH(QString, source);
        QFETCH(QString, themetype);
        QFETCH(QString, name);
        QFETCH(QString, message);
        ThemeDocument doc;
        prepare(doc, {{"themetype", themetype}});
        writeFile(art("broken.png"), "\x89PNG\r\n\x1a\nnot really");
        writeFile(art("good.png"), imageBytes(filled({192, 352}, blue), "PNG"));
        writeFile(m_root + QStringLiteral("/art/blocked"), "a file where a folder would go");
        const QStringList before = contentsBelow(m_root);
        ThemeDocument copy;
        copy.assignFrom(doc);
        ArtOptions options = intoArt();
        options.name = name;

        const ArtImportReport report = importArt(doc, key, {art(source)}, options);
        QVERIFY(!report.imported);
        QVERIFY2(report.lines().join(u'\n').contains(message), qPrintable(report.lines().join(u'\n')));
        QCOMPARE(contentsBelow(m_root), before);
        for (int i = 0; i < int(themeFields().size()); ++i)
            QCOMPARE(doc.value(i), copy.value(i));
    }

    void framesBeyondTheNewCountLeaveTheSequence()
    {
        ThemeDocument doc;
        prepare(doc, {{"bgframecount", "3"}, {"bgstartingframe", "3"}, {"bgstillframe", "2"}});
        writeFile(m_root + QStringLiteral("/art/bg3.bmp"), imageBytes(filled({192, 352}, blue), "BMP"));
        writeFile(art("one.png"), imageBytes(filled({192, 352}, white), "PNG"));
        writeFile(art("two.png"), imageBytes(filled({192, 352}, white), "PNG"));

        const ArtImportReport report = importArt(doc, QStringLiteral("bgimage"), {art("one.png"), art("two.png")}, intoArt());
        QVERIFY2(report.imported, qPrintable(report.lines().join(u'\n')));
        QCOMPARE(doc.value(u"bgframecount"), QStringLiteral("2"));
        QCOMPARE(doc.value(u"bgstartingframe"), QStringLiteral("1"));
        QCOMPARE(doc.value(u"bgstillframe"), QStringLiteral("2"));
        QVERIFY(!QFileInfo::exists(m_root + QStringLiteral("/art/bg3.bmp")));
        QCOMPARE(QColor(pixelAt(m_root + QStringLiteral("/art/replaced/bg3.bmp"), {5, 5})).name(), QColor(blue).name());
        QCOMPARE(QColor(pixelAt(m_root + QStringLiteral("/art/bg1.bmp"), {5, 5})).name(), QColor(white).name());
        QCOMPARE(packageEntryNames(m_root + QStringLiteral("/Art.zip")).value_or(QStringList()),
                 (QStringList{"bg1.bmp", "bg2.bmp"}));
        const QStringList left = QDir(m_root + QStringLiteral("/art")).entryList(QDir::Hidden | QDir::AllEntries | QDir::NoDotAndDotDot);
        QCOMPARE(left, (QStringList{"bg1.bmp", "bg2.bmp", "replaced"})); // no staging folder stays
    }

    void commandLine_data()
    {
        QTest::addColumn<QStringList>("args");
        QTest::addColumn<QString>("themetype");
        QTest::addColumn<int>("status");
        QTest::addColumn<QString>("said");

        QTest::newRow("imports as JPEG at a chosen quality") << QStringList{"bgimage", "%SRC%", "--format", "jpg", "--quality", "70"}
                                                             << "1" << 0 << "bgextension=jpg";
        QTest::newRow("an interface screen at a chosen size") << QStringList{"ifacemain", "%SRC%", "--size", "64x48"}
                                                              << "0" << 0 << "ifacemain=";
        QTest::newRow("a key art does not fill") << QStringList{"bgfilename", "%SRC%"} << "1" << 2 << "takes no key";
        QTest::newRow("a fit that does not exist") << QStringList{"bgimage", "%SRC%", "--fit", "crop"} << "1" << 2
                                                   << "fill|fit|stretch|pixel";
        QTest::newRow("a colour out of range") << QStringList{"bgimage", "%SRC%", "--background", "0,0,256"} << "1" << 2
                                               << "R,G,B";
        QTest::newRow("Type 0 refuses a miscellaneous image") << QStringList{"door1", "%SRC%"} << "0" << 1
                                                              << "needs Theme Type 1";
    }

    void commandLine()
    {
        QFETCH(QStringList, args);
        QFETCH(QString, themetype);
        QFETCH(int, status);
        QFETCH(QString, said);
        ThemeDocument doc;
        prepare(doc, {{"themetype", themetype}});
        writeFile(art("good.png"), imageBytes(filled({100, 50}, blue), "PNG"));
        args.replaceInStrings(QStringLiteral("%SRC%"), art("good.png"));
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("TMPDIR"), m_root + QStringLiteral("/tmp"));
        const QByteArray theme = readFile(doc.currentThemeFile());
        const ProgramRun run = runProgram(qEnvironmentVariable("STAKKO_CLI"),
                                          QStringList{"import", doc.currentThemeFile()} + args, env);
        QCOMPARE(run.status, status);
        QVERIFY2((run.out + run.err).contains(said.toUtf8()), (run.out + run.err).constData());
        QCOMPARE(readFile(doc.currentThemeFile()) == theme, status != 0);
        if (args.contains(u"--size")) {
            ThemeDocument loaded;
            ScriptedDialogs dialogs;
            loadThemeFile(loaded, doc.currentThemeFile(), dialogs);
            QCOMPARE(QImage(loaded.value(u"ifacemain")).size(), QSize(64, 48));
        }
    }
};

QTEST_GUILESS_MAIN(ArtImportTest)
#include "tst_artimport.moc"
