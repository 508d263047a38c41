// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "common/scripteddialogs.h"
#include "editing/colorchoice.h"
#include "theme/themedocument.h"

#include <QTest>

#include <memory>

class ColorChoiceTest : public QObject
{
    Q_OBJECT

    std::unique_ptr<ThemeDocument> m_doc;
    std::unique_ptr<ScriptedDialogs> m_dialogs;

private slots:
    void init()
    {
        m_doc = std::make_unique<ThemeDocument>();
        m_doc->resetTheme();
        m_doc->setDirty(false);
        m_dialogs = std::make_unique<ScriptedDialogs>();
    }

    void chosenColorBecomesSwatchAndText_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<qint64>("color");   // -1: the author cancels
        QTest::addColumn<QString>("text");
        QTest::newRow("blue") << 5 << qint64(0xFF0000) << "0,0,255";
        QTest::newRow("black") << 0 << qint64(0) << "0,0,0";
        QTest::newRow("mixed") << 11 << qint64(0x0A141E) << "30,20,10";
        QTest::newRow("cancelled") << 5 << qint64(-1) << QString();
    }

    void chosenColorBecomesSwatchAndText()
    {
        QFETCH(int, row);
        QFETCH(qint64, color);
        QFETCH(QString, text);
        const QString key = QString::fromLatin1(colorKeys[row]);
        const QString before = m_doc->value(key);
        const bool chosen = color >= 0;
        if (chosen)
            m_dialogs->colors.enqueue(quint32(color));

        chooseThemeColor(*m_doc, *m_dialogs, row);

        QCOMPARE(m_dialogs->colorRequests, 1);
        QCOMPARE(m_doc->swatch(row), chosen ? std::optional<quint32>(color) : std::nullopt);
        QCOMPARE(m_doc->value(key), chosen ? text : before);
        QCOMPARE(m_doc->isDirty(), chosen);
    }
};

QTEST_GUILESS_MAIN(ColorChoiceTest)
#include "tst_colorchoice.moc"
