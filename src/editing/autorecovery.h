// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "common/result.h"

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QTimer>

#include <vector>

#include <functional>
#include <memory>
#include <optional>

class QLockFile;
class ThemeDocument;

/**
 * Autosave copies of unsaved changes written while the editor runs, so a crash loses only the
 * last moments, and kept when the system ends the editor. Each copy is a folder: the theme as
 * the writer saves it (for a person to open) and everything the document holds (to bring it
 * back exactly). A running editor holds a lock beside its copy; a copy whose lock nobody holds
 * was left by an editor that did not end as Exit ends it, and is offered at the next start.
 */
class AutoRecovery : public QObject
{
    Q_OBJECT

public:
    /** "autosave" in the per-user application data folder. */
    static QString userFolder();
    /**
     * Moves the copies older editors left in \a oldFolder (their "sessions" folder) into
     * \a folder, so they are offered as ever; copies whose editor still runs stay.
     */
    static void takeOldCopies(const QString &oldFolder, const QString &folder);
    /**
     * Older editors wrote the unsaved theme as a file of its own into \a folder ("recovered")
     * when the system ended them: names every such file not named before in one information
     * message, then remembers them as named. The files stay where they are.
     */
    static Report announceOldKeptFiles(const QString &folder);
    /** Both of the above, for the per-user folders; the message to show. */
    static Report takeOlderEditorsCopies();

    explicit AutoRecovery(ThemeDocument &doc, const QString &folder = userFolder(), QObject *parent = nullptr);
    /** An orderly end: the copy goes. */
    ~AutoRecovery() override;

    /** copyDue follows changes after \a settleMs of quiet, at most once every \a intervalMs. */
    void setDelays(int settleMs, int intervalMs);
    /** Asked at each copy for the page shown, so a restore shows it again. */
    void setPageSource(std::function<int()> page) { m_page = std::move(page); }

    /** New, Load or Save: nothing is unsaved any more, so the copy goes. */
    void restart();
    /** Writes the copy now; fails with the reason when it could not be written whole. */
    Result<void> writeCopy();
    /**
     * The system ends the editor: the unsaved changes are written and the copy stays, unlocked,
     * to be offered at the next start. Returns the copy's folder ("" with nothing unsaved).
     */
    Result<QString> keepForNextStart();
    /** This editor's copy folder. */
    QString copyFolder() const { return m_copy; }

    struct Orphan {
        QString folder;
        QString themeFile; // the file the changes belong to; "" for a theme never saved
        QDateTime written;
    };
    /**
     * Copies in \a folder left by editors that are gone, newest first. Each comes with its lock
     * taken, so another editor starting now does not offer it too.
     */
    std::vector<Orphan> takeOrphans();
    /**
     * Brings the orphan back into the document exactly, marked as changed and with its current
     * file, and deletes it. Returns the page it showed, or fails with the reason.
     */
    Result<int> restore(const Orphan &orphan);
    void discard(const Orphan &orphan);

signals:
    /** Unsaved changes have settled: the owner writes the copy (writeCopy) and shows a failure. */
    void copyDue();

private:
    void changed();

    ThemeDocument &m_doc;
    QString m_folder;
    QString m_copy;
    std::unique_ptr<QLockFile> m_lock;
    std::vector<std::unique_ptr<QLockFile>> m_taken;
    std::function<int()> m_page;
    QTimer m_timer;
    QDateTime m_lastWrite;
    int m_settleMs = 2000;
    int m_intervalMs = 30000;
    bool m_changed = false;
};
