#include "document/referencedfiles.h"
#include "document/themedocument.h"

#include <QTest>

using Fields = QList<QPair<QString, QString>>;

class ReferencedFilesTest : public QObject
{
    Q_OBJECT

private slots:
    void listsWhatTheFileWouldName_data()
    {
        QTest::addColumn<Fields>("fields");
        QTest::addColumn<QStringList>("references"); // "key kind name[|extension|count]: files"

        QTest::newRow("new theme: the package alone") << Fields{}
            << QStringList{"resourcefile package StakkoTheme.zip: StakkoTheme.zip"};
        QTest::newRow("frames only for a whole count from 1 to 32767")
            << Fields{{"resourcefile", ""}, {"includebackground", "1"}, {"bgfilename", "gfx\\bg"},
                      {"bgextension", "bmp"}, {"bgframecount", " 3 "}, {"includeexplosion", "1"},
                      {"explodefilename", "ex"}, {"explodeframecount", "2.5"}, {"includebomb", "1"},
                      {"Bombframecount", "32768"}, {"includeblocks", "2"}, {"blkframecount", "1"}}
            << QStringList{"resourcefile package : ",
                           "bgfilename frames gfx\\bg|bmp| 3 : gfx\\bg1.bmp gfx\\bg2.bmp gfx\\bg3.bmp",
                           "explodefilename frames ex||2.5: ", "Bombfilename frames ||32768: "};
        QTest::newRow("stills, music and sounds only when written, in file order")
            << Fields{{"resourcefile", "p.zip"}, {"includesounds", "1"}, {"rotate", "r.wav"},
                      {"includemusic", "1"}, {"midi", "song.mid"}, {"includecolors", "1"},
                      {"includemiscimages", "1"}, {"winimg", "w.bmp"}, {"wintransparent", "1"},
                      {"includeinterface", "1"}, {"ifacemenu", "m.bmp"}, {"includenextwindow", "0"}}
            << QStringList{"resourcefile package p.zip: p.zip", "ifacemenu still m.bmp: m.bmp",
                           "winimg still w.bmp: w.bmp", "midi music song.mid: song.mid",
                           "rotate wave r.wav: r.wav"};
        QTest::newRow("type 0: skin, interface, music and sounds")
            << Fields{{"themetype", "0"}, {"skinfile", "skin.bmp"}, {"includebackground", "1"},
                      {"includeinterface", "1"}, {"ifacemain", "i.bmp"}, {"includemiscimages", "1"},
                      {"door1", "d.bmp"}, {"includemusic", "1"}}
            << QStringList{"skinfile skin skin.bmp: skin.bmp", "ifacemain still i.bmp: i.bmp"};
        QTest::newRow("type 0 without a skin") << Fields{{"themetype", "0"}} << QStringList{};
    }

    void listsWhatTheFileWouldName()
    {
        QFETCH(Fields, fields);
        QFETCH(QStringList, references);
        ThemeDocument doc;
        doc.resetTheme();
        for (const auto &[key, value] : fields)
            doc.setValue(ThemeDocument::requireIndex(key), value);
        const char *kinds[] = {"frames", "still", "wave", "music", "skin", "package"};
        QStringList found;
        for (const FileReference &r : referencedFiles(doc)) {
            const bool frames = r.kind == FileKind::FrameSequence;
            found.append(r.key + u' ' + QLatin1StringView(kinds[int(r.kind)]) + u' ' + r.name
                         + (frames ? u'|' + r.extension + u'|' + r.count : QString()) + QStringLiteral(": ")
                         + r.files.join(u' '));
        }
        QCOMPARE(found, references);
    }
};

QTEST_GUILESS_MAIN(ReferencedFilesTest)
#include "tst_referencedfiles.moc"
