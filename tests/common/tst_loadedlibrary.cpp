// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// Libraries loaded when first wanted: each the build names loads with every function its table
// lists, none is loaded before it is wanted, and one that cannot serve says why.

#include "art/soundlibraries.h"
#include "common/loadedlibrary.h"
#include "package/archivelibrary.h"

#include <QFile>
#include <QTest>

#include <functional>

using Loaded = std::function<QString()>;
Q_DECLARE_METATYPE(Loaded)

namespace {

/** Whether a library whose file name holds \a name is mapped into this process. */
bool mapped(const QByteArray &name)
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    return maps.open(QIODevice::ReadOnly) && maps.readAll().contains(name);
}

} // namespace

class LoadedLibraryTest : public QObject
{
    Q_OBJECT

private slots:
    void eachLoadsWhenFirstWantedWithEveryFunction_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<Loaded>("load");
        QTest::newRow("libarchive") << QByteArray("libarchive.so") << Loaded([] { return archiveLibrary().errorText(); });
        QTest::newRow("libsndfile") << QByteArray("libsndfile.so") << Loaded([] { return sndfileLibrary().errorText(); });
        QTest::newRow("libsamplerate") << QByteArray("libsamplerate.so")
                                       << Loaded([] { return samplerateLibrary().errorText(); });
    }
    void eachLoadsWhenFirstWantedWithEveryFunction()
    {
        QFETCH(QByteArray, file);
        QFETCH(Loaded, load);
        QVERIFY2(!mapped(file), "loaded before it was wanted");
        QCOMPARE(load(), QString());
        QVERIFY(mapped(file));
    }

    void aLibraryThatCannotServeSaysWhy_data()
    {
        QTest::addColumn<QByteArray>("soname");
        QTest::addColumn<QStringList>("functions");
        QTest::addColumn<QString>("named");
        QTest::newRow("no such library") << QByteArray("libstakko-none.so.9") << QStringList{"a"}
                                         << QStringLiteral("libstakko-none.so.9");
        QTest::newRow("functions missing") << QByteArray("libsamplerate.so.0")
                                           << QStringList{"src_simple", "src_none", "src_gone"}
                                           << QStringLiteral("lacks src_none, src_gone");
    }
    void aLibraryThatCannotServeSaysWhy()
    {
        QFETCH(QByteArray, soname);
        QFETCH(QStringList, functions);
        QFETCH(QString, named);
        LibraryLoader loader(soname.constData());
        std::vector<void (*)()> table(size_t(functions.size()));
        std::vector<QByteArray> names;
        for (qsizetype i = 0; i < functions.size(); ++i) {
            names.push_back(functions.at(i).toLatin1());
            loader.resolve(table[size_t(i)], names.back().constData());
        }
        const Result<int> result = loader.result(0);
        QVERIFY(!result);
        QVERIFY2(result.errorText().contains(named), qPrintable(result.errorText()));
    }
};

QTEST_GUILESS_MAIN(LoadedLibraryTest)
#include "tst_loadedlibrary.moc"
