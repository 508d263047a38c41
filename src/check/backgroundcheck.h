// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/report.h"

#include <QObject>

#include <memory>

class QThread;
class ThemeDocument;

/**
 * Checks a theme on a worker thread, so a theme of many frames never holds up typing. Each
 * check reads a private copy of the document taken when it starts; one asked for while another
 * runs starts as soon as that one ends, on the document as it is then.
 */
class BackgroundCheck : public QObject
{
    Q_OBJECT

public:
    explicit BackgroundCheck(const ThemeDocument &doc, QObject *parent = nullptr);
    /** Waits for a running check: it only reads, so this is short. */
    ~BackgroundCheck() override;

    void start();
    bool isRunning() const { return m_thread != nullptr; }
    /** True once a check has finished. */
    bool hasResult() const { return m_hasResult; }
    /** The newest finished check's problems. */
    const Report &report() const { return m_report; }

signals:
    void finished();

private:
    void collect();

    const ThemeDocument &m_doc;
    std::unique_ptr<ThemeDocument> m_copy;
    QThread *m_thread = nullptr;
    Report m_found; // written by the worker only while it runs
    Report m_report;
    bool m_hasResult = false;
    bool m_again = false;
};
