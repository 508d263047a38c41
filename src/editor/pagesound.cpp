// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/pages.h"

#include "editor/controlnames.h"
#include "editor/pagewidgets.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

using namespace PageWidgets;

namespace {

QGroupBox *soundFrame(SoundPage &bound)
{
    QGroupBox *box = frame("fraSound", QCoreApplication::translate("PageWidgets", "Sounds"));
    auto *grid = new QGridLayout(box);
    compact(grid);
    constexpr int rowsPerColumn = 6;
    for (SoundRow r : rowValues<SoundRow>) {
        const int i = rowOf(r);
        const int row = i % rowsPerColumn;
        const int column = (i / rowsPerColumn) * 5;
        QLineEdit *edit = lineEdit(soundRows.keys[i]);
        grid->addWidget(label(fieldCaption(soundRows.keys[i]), edit), row, column);
        grid->addWidget(edit, row, column + 1);
        const FileRow sound{soundRows.keys[i], edit, button(rowControl(soundRows.browse, i), QCoreApplication::translate("PageWidgets", "Browse")),
                            iconButton(rowControl(soundRows.show, i), "play", QCoreApplication::translate("PageWidgets", "Play Sound"))};
        bound.sounds[r] = sound;
        grid->addWidget(sound.browse, row, column + 2);
        grid->addWidget(sound.show, row, column + 3);
    }
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(6, 1);
    grid->setColumnMinimumWidth(4, 12);
    return box;
}

QGroupBox *musicFrame(SoundPage &bound)
{
    QGroupBox *box = frame("fraMusic", QCoreApplication::translate("PageWidgets", "Music"));
    auto *row = new QHBoxLayout(box);
    auto *play = button(QStringLiteral("cmdPlayMusic"), QCoreApplication::translate("PageWidgets", "Play Music"));
    play->setIcon(editorIcon("play"));
    bound.music = {FieldKey::midi, lineEdit(FieldKey::midi), button(QStringLiteral("cmdBrowseMusic"), QCoreApplication::translate("PageWidgets", "Browse")), play};
    row->addWidget(bound.music.edit, 1);
    row->addWidget(bound.music.browse);
    row->addWidget(play);
    return box;
}

} // namespace

SoundPage createSoundPage()
{
    SoundPage bound;
    FieldRecording recording(bound.fields);
    auto *page = new QWidget;
    bound.panel = page;
    page->setObjectName(QStringLiteral("picSound"));
    auto *switches = new QHBoxLayout;
    switches->addWidget(fieldCheckBox(includeKey(Section::Sounds)));
    switches->addWidget(fieldCheckBox(includeKey(Section::Music)));
    switches->addStretch(1);
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(switches);
    bound.soundsFrame = soundFrame(bound);
    bound.musicFrame = musicFrame(bound);
    layout->addWidget(bound.soundsFrame);
    layout->addWidget(bound.musicFrame);
    layout->addStretch(1);
    return bound;
}
