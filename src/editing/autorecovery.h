// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

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
 * Copies of unsaved changes written while the editor runs, so a crash loses only the last
 * moments. Each copy is a folder: the theme as the writer saves it (for a person to open) and
 * everything the document holds (to bring it back exactly). A running editor holds a lock
 * beside its copy; a copy whose lock nobody holds was left by an editor that did not end.
 */
class AutoRecovery : public QObject
{
    Q_OBJECT

public:
    /** "sessions" in the per-user application data folder. */
    static QString userFolder();

    explicit AutoRecovery(ThemeDocument &doc, const QString &folder = userFolder(), QObject *parent = nullptr);
    /** An orderly end: the copy goes. */
    ~AutoRecovery() override;

    /** Copies follow changes after \a settleMs of quiet, at most once every \a intervalMs. */
    void setDelays(int settleMs, int intervalMs);
    /** Asked at each copy for the page shown, so a restore shows it again. */
    void setPageSource(std::function<int()> page) { m_page = std::move(page); }

    /** New, Load or Save: nothing is unsaved any more, so the copy goes. */
    void restart();
    /** Writes the copy now; false and \a error filled when it could not be written whole. */
    bool writeCopy(QString *error = nullptr);
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
     * file, and deletes it. Returns the page it showed, or nullopt and \a error filled.
     */
    std::optional<int> restore(const Orphan &orphan, QString *error = nullptr);
    void discard(const Orphan &orphan);

signals:
    void copyFailed(const QString &error);

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
