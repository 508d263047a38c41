// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The baselines of the start-up benchmark: the plainest Qt window, linked to Qt Widgets and
// nothing else, empty or ("label") with one line of text, which pays the first font load.

#include "firstpaint.h"

#include <QApplication>
#include <QLabel>
#include <QWidget>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    FirstPaint watcher;
    app.installEventFilter(&watcher);
    QWidget window;
    window.resize(500, 430);
    if (argc > 1 && qstrcmp(argv[1], "label") == 0)
        new QLabel(QStringLiteral("Stakko Theme Maker"), &window);
    window.show();
    return app.exec();
}
