// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/animatedelement.h"
#include "theme/themefields.h"
#include "theme/themesections.h"

#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QSet>
#include <QTest>

#include <algorithm>

/** The field table is the one place a key is spelled; everything else walks it. */
class FieldTableTest : public QObject
{
    Q_OBJECT

private slots:
    void eachKeyIsSpelledOnceInTheSources();
    void sectionsHoldTheirRowsInBothOrders();
    void animatedElementsFindTheirFieldsInTheirSection();
};

namespace {

/** The string literals of C++ source \a text, comments and character literals left out. */
QStringList stringLiterals(const QString &text)
{
    QStringList found;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c == u'/' && i + 1 < text.size() && text[i + 1] == u'/') {
            i = text.indexOf(u'\n', i);
            if (i < 0)
                break;
        } else if (c == u'/' && i + 1 < text.size() && text[i + 1] == u'*') {
            i = text.indexOf(QStringLiteral("*/"), i + 2);
            if (i < 0)
                break;
            ++i;
        } else if (c == u'"' || c == u'\'') {
            const qsizetype start = i + 1;
            for (++i; i < text.size() && text[i] != c; ++i) {
                if (text[i] == u'\\')
                    ++i;
            }
            if (c == u'"')
                found.append(text.mid(start, i - start));
        }
    }
    return found;
}

} // namespace

void FieldTableTest::eachKeyIsSpelledOnceInTheSources()
{
    // "warning" is also a severity's name in reports; "midi" a music file extension.
    const QHash<QString, int> allowed{{QStringLiteral("warning"), 2}, {QStringLiteral("midi"), 2}};

    QHash<QString, int> spelled;
    for (const FieldSpec &field : themeFields())
        spelled.insert(QString::fromLatin1(field.key), 0);
    const QString src = qEnvironmentVariable("STAKKO_SOURCE_DIR") + QStringLiteral("/src");
    QDirIterator it(src, {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files, QDirIterator::Subdirectories);
    int files = 0;
    while (it.hasNext()) {
        QFile file(it.next());
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
        ++files;
        for (const QString &literal : stringLiterals(QString::fromUtf8(file.readAll()))) {
            if (auto count = spelled.find(literal); count != spelled.end())
                ++*count;
        }
    }
    QVERIFY2(files > 50, qPrintable(src));

    int once = 0;
    for (auto [key, count] : spelled.asKeyValueRange()) {
        QVERIFY2(count >= 1 && count <= allowed.value(key, 1),
                 qPrintable(QStringLiteral("%1 is spelled %2 times").arg(key).arg(count)));
        once += count == 1;
    }
    QVERIFY(once * 10 >= spelled.size() * 9);
}

void FieldTableTest::sectionsHoldTheirRowsInBothOrders()
{
    QSet<const FieldSpec *> inSections;
    for (const ThemeSection &s : themeSections()) {
        QVERIFY(s.include);
        QCOMPARE(fieldSpec(s.include).role, FieldRole::Include);
        QCOMPARE(s.readOrder.size(), s.keys.size());
        for (const FieldSpec &k : s.keys) {
            QCOMPARE(k.section, s.id);
            QVERIFY(std::find(s.readOrder.begin(), s.readOrder.end(), &k) != s.readOrder.end());
            inSections.insert(&k);
        }
    }
    // Every other row is a header field, an include switch or an editor-only frame-1 image.
    for (const FieldSpec &f : themeFields()) {
        if (!inSections.contains(&f))
            QVERIFY2(f.section == Section::Header || f.role == FieldRole::Include || f.role == FieldRole::Image, f.key);
    }
}

void FieldTableTest::animatedElementsFindTheirFieldsInTheirSection()
{
    for (const AnimatedElement &e : animatedElements) {
        const Section section = fieldSpec(e.includeField).section;
        QCOMPARE(animationOf(themeSection(section)), &e);
        for (const char *field : {e.imageField, e.rootField, e.extensionField, e.frameCountField, e.delayField}) {
            QVERIFY2(field, e.includeField);
            QCOMPARE(fieldSpec(field).section, section);
        }
    }
}

QTEST_GUILESS_MAIN(FieldTableTest)
#include "tst_fieldtable.moc"
