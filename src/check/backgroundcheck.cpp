// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "check/backgroundcheck.h"

#include "check/themechecker.h"
#include "theme/themedocument.h"

#include <QThread>

BackgroundCheck::BackgroundCheck(const ThemeDocument &doc, QObject *parent)
    : QObject(parent)
    , m_doc(doc)
{
}

BackgroundCheck::~BackgroundCheck()
{
    if (m_thread) {
        m_thread->wait();
        delete m_thread;
    }
}

void BackgroundCheck::start()
{
    if (m_thread) {
        m_again = true;
        return;
    }
    m_copy = std::make_unique<ThemeDocument>();
    m_copy->assignFrom(m_doc);
    m_thread = QThread::create([this] { m_found = checkTheme(*m_copy); });
    connect(m_thread, &QThread::finished, this, &BackgroundCheck::collect);
    m_thread->start(QThread::LowPriority);
}

void BackgroundCheck::collect()
{
    m_thread->wait(); // finished() comes just before the thread's very end
    delete m_thread;
    m_thread = nullptr;
    m_report = std::move(m_found);
    m_found = {};
    m_hasResult = true;
    emit finished();
    if (m_again) {
        m_again = false;
        start();
    }
}
