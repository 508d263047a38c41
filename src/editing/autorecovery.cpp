// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editing/autorecovery.h"

#include "common/safefile.h"
#include "theme/themedocument.h"
#include "theme/themefields.h"
#include "theme/themefilewriter.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLockFile>
#include <QStandardPaths>

#include <algorithm>

namespace {

const QString stateName = QStringLiteral("/state.json");
const QString themeName = QStringLiteral("/theme.skt");
constexpr qint64 largestState = 64 << 20;
// In the folder of theme files older editors kept: the names already shown to the author, one a line.
const QString announcedList = QStringLiteral(".announced");

std::unique_ptr<QLockFile> lockOf(const QString &copy)
{
    auto lock = std::make_unique<QLockFile>(copy + QStringLiteral(".lock"));
    // Only a gone process makes a lock stale; an editor left open for days keeps its copy.
    lock->setStaleLockTime(0);
    return lock;
}

Result<QJsonObject> readState(const QString &copy)
{
    QFile file(copy + stateName);
    if (!file.open(QIODevice::ReadOnly) || file.size() > largestState)
        return Result<QJsonObject>::fail(QCoreApplication::translate("AutoRecovery", "Cannot read %1").arg(QDir::toNativeSeparators(file.fileName())));
    const QJsonDocument json = QJsonDocument::fromJson(file.readAll());
    if (!json.isObject())
        return Result<QJsonObject>::fail(QCoreApplication::translate("AutoRecovery", "%1 is damaged").arg(QDir::toNativeSeparators(file.fileName())));
    return json.object();
}

const QFile::Permissions ownerOnly = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

bool makeOwnerOnlyFolder(const QString &folder)
{
    return QDir(folder).exists() || (QDir().mkpath(QFileInfo(folder).absolutePath()) && QDir().mkdir(folder, ownerOnly));
}

} // namespace

QString AutoRecovery::userFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) + QStringLiteral("/autosave");
}

void AutoRecovery::takeOldCopies(const QString &oldFolder, const QString &folder)
{
    const QStringList copies =
        QDir(oldFolder).entryList({QStringLiteral("session-*")}, QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    if (copies.isEmpty() || !makeOwnerOnlyFolder(folder))
        return;
    for (const QString &name : copies) {
        const QString copy = oldFolder + u'/' + name;
        auto lock = lockOf(copy);
        if (!lock->tryLock(0))
            continue; // its editor still runs and writes there
        // A copy that cannot move stays where it was, for a person to find.
        QDir().rename(copy, folder + u'/' + name);
    }
    QDir().rmdir(oldFolder); // only when nothing is left
}

Report AutoRecovery::announceOldKeptFiles(const QString &folder)
{
    Report report;
    const QString listPath = folder + u'/' + announcedList;
    QStringList announced;
    QFile list(listPath);
    if (list.open(QIODevice::ReadOnly))
        announced = QString::fromUtf8(list.readAll()).split(u'\n', Qt::SkipEmptyParts);

    const QStringList copies = QDir(folder).entryList({QStringLiteral("*.skt")}, QDir::Files, QDir::Name);
    QStringList fresh;
    for (const QString &name : copies) {
        if (!announced.contains(name))
            fresh << QDir::toNativeSeparators(folder + u'/' + name);
    }
    if (fresh.isEmpty())
        return report;
    const QString text = QCoreApplication::translate("AutoRecovery", "Stakko Theme Maker was closed by the system with unsaved changes. "
                                                                     "They were kept in:\n%1\nLoad %2 to get them back.")
                             .arg(fresh.join(u'\n'), fresh.size() == 1 ? QCoreApplication::translate("AutoRecovery", "that file")
                                                                        : QCoreApplication::translate("AutoRecovery", "those files"));
    report.add({Problem::Severity::Information, text, {}, folder, {}, QCoreApplication::translate("AutoRecovery", "Unsaved Changes Kept")});

    // Only files still there are remembered, so the list never outgrows the folder.
    const QByteArray bytes = copies.join(u'\n').toUtf8() + '\n';
    if (const Result<void> written = writeWholeFile(listPath, bytes); !written)
        report.error(QCoreApplication::translate("AutoRecovery", "Cannot write %1: %2").arg(QDir::toNativeSeparators(listPath), written.errorText()),
                     {}, listPath);
    return report;
}

Report AutoRecovery::takeOlderEditorsCopies()
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    takeOldCopies(data + QStringLiteral("/sessions"), userFolder());
    return announceOldKeptFiles(data + QStringLiteral("/recovered"));
}

AutoRecovery::AutoRecovery(ThemeDocument &doc, const QString &folder, QObject *parent)
    : QObject(parent)
    , m_doc(doc)
    , m_folder(folder)
    , m_copy(QStringLiteral("%1/copy-%2-%3")
                 .arg(folder)
                 .arg(QCoreApplication::applicationPid())
                 .arg(QDateTime::currentMSecsSinceEpoch()))
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (m_changed && m_doc.isDirty())
            emit copyDue();
    });
    connect(&doc, &ThemeDocument::fieldChanged, this, &AutoRecovery::changed);
    connect(&doc, &ThemeDocument::swatchChanged, this, &AutoRecovery::changed);
    connect(&doc, &ThemeDocument::stateChanged, this, &AutoRecovery::changed);
    connect(&doc, &ThemeDocument::themeReset, this, &AutoRecovery::restart);
}

AutoRecovery::~AutoRecovery()
{
    restart();
}

void AutoRecovery::setDelays(int settleMs, int intervalMs)
{
    m_settleMs = settleMs;
    m_intervalMs = intervalMs;
}

void AutoRecovery::changed()
{
    m_changed = true;
    if (!m_doc.isDirty())
        return;
    // Typing that never pauses still gets a copy once an interval has passed.
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const qint64 sinceLast = m_lastWrite.isValid() ? m_lastWrite.msecsTo(now) : m_intervalMs;
    const qint64 wait = std::max<qint64>(m_settleMs, m_intervalMs - sinceLast);
    if (!m_timer.isActive() || m_timer.remainingTime() < wait)
        m_timer.start(int(wait));
}

void AutoRecovery::restart()
{
    m_timer.stop();
    m_changed = false;
    if (m_lock) {
        QDir(m_copy).removeRecursively();
        m_lock.reset(); // unlocks and removes the lock file
    }
}

Result<void> AutoRecovery::writeCopy()
{
    const auto fail = [](const QString &why) { return Result<void>::fail(why); };
    if (!makeOwnerOnlyFolder(m_folder))
        return fail(QCoreApplication::translate("AutoRecovery", "Cannot create %1").arg(QDir::toNativeSeparators(m_folder)));
    if (!m_lock) {
        m_lock = lockOf(m_copy);
        if (!m_lock->tryLock(0)) {
            m_lock.reset();
            return fail(QCoreApplication::translate("AutoRecovery", "Cannot lock %1").arg(QDir::toNativeSeparators(m_copy)));
        }
    }
    if (!QDir(m_copy).exists() && !QDir().mkdir(m_copy, ownerOnly))
        return fail(QCoreApplication::translate("AutoRecovery", "Cannot create %1").arg(QDir::toNativeSeparators(m_copy)));

    QJsonObject fields;
    for (int i = 0; i < int(themeFields().size()); ++i)
        fields.insert(QLatin1StringView(themeFields()[size_t(i)].key), m_doc.value(i));
    QJsonArray swatches;
    for (int i = 0; i < int(std::size(colorKeys)); ++i) {
        const auto swatch = m_doc.swatch(i);
        swatches.append(swatch ? QJsonValue(qint64(*swatch)) : QJsonValue());
    }
    const QDateTime now = QDateTime::currentDateTimeUtc();
    const QJsonObject state{
        {QStringLiteral("fields"), fields},
        {QStringLiteral("swatches"), swatches},
        {QStringLiteral("currentFile"), m_doc.currentThemeFile()},
        {QStringLiteral("packageFolder"), m_doc.packageFolder()},
        {QStringLiteral("packageFolderTail"), m_doc.packageFolderTail()},
        {QStringLiteral("musicFolder"), m_doc.musicFolder()},
        {QStringLiteral("page"), m_page ? m_page() : 0},
        {QStringLiteral("written"), now.toString(Qt::ISODateWithMs)},
    };
    // The theme file is for a person to open; the state alone restores, so it goes last.
    if (const Result<void> written = writeThemeFile(m_doc, m_copy + themeName); !written)
        return fail(written.errorText());
    if (const Result<void> written = writeWholeFile(m_copy + stateName, QJsonDocument(state).toJson()); !written)
        return fail(written.errorText());
    m_lastWrite = now;
    m_changed = false;
    return {};
}

Result<QString> AutoRecovery::keepForNextStart()
{
    m_timer.stop();
    if (!m_doc.isDirty())
        return QString();
    Result<void> written = writeCopy();
    if (!written)
        return written.takeReport();
    m_lock.reset(); // unlocked: an editor starting later takes it as one left behind
    return m_copy;
}

std::vector<AutoRecovery::Orphan> AutoRecovery::takeOrphans()
{
    std::vector<Orphan> orphans;
    const QStringList copies =
        QDir(m_folder).entryList({QStringLiteral("copy-*"), QStringLiteral("session-*")}, QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString &name : copies) {
        const QString copy = m_folder + u'/' + name;
        if (copy == m_copy)
            continue;
        auto lock = lockOf(copy);
        if (!lock->tryLock(0))
            continue; // its editor still runs
        const Result<QJsonObject> state = readState(copy);
        if (!state) {
            // Ended before its first copy was whole: there is nothing to bring back.
            QDir(copy).removeRecursively();
            continue;
        }
        orphans.push_back({copy, state->value(QStringLiteral("currentFile")).toString(),
                           QDateTime::fromString(state->value(QStringLiteral("written")).toString(), Qt::ISODateWithMs)});
        m_taken.push_back(std::move(lock));
    }
    std::sort(orphans.begin(), orphans.end(), [](const Orphan &a, const Orphan &b) { return a.written > b.written; });
    return orphans;
}

Result<int> AutoRecovery::restore(const Orphan &orphan)
{
    Result<QJsonObject> state = readState(orphan.folder);
    if (!state)
        return state.takeReport();
    const QJsonObject fields = state->value(QStringLiteral("fields")).toObject();
    for (int i = 0; i < int(themeFields().size()); ++i) {
        const QJsonValue value = fields.value(QLatin1StringView(themeFields()[size_t(i)].key));
        if (value.isString())
            m_doc.setValue(i, value.toString());
    }
    const QJsonArray swatches = state->value(QStringLiteral("swatches")).toArray();
    for (int i = 0; i < int(std::size(colorKeys)) && i < swatches.size(); ++i) {
        if (swatches.at(i).isDouble())
            m_doc.setSwatch(i, quint32(swatches.at(i).toInteger()));
    }
    m_doc.setPackageFolder(state->value(QStringLiteral("packageFolder")).toString(),
                           state->value(QStringLiteral("packageFolderTail")).toString());
    m_doc.setMusicFolder(state->value(QStringLiteral("musicFolder")).toString());
    m_doc.setCurrentThemeFile(state->value(QStringLiteral("currentFile")).toString());
    m_doc.setDirty(true);
    const int page = state->value(QStringLiteral("page")).toInt();
    discard(orphan);
    return page;
}

void AutoRecovery::discard(const Orphan &orphan)
{
    QDir(orphan.folder).removeRecursively();
    const QString lockName = orphan.folder + QStringLiteral(".lock");
    auto taken = std::find_if(m_taken.begin(), m_taken.end(),
                              [&lockName](const auto &lock) { return lock->fileName() == lockName; });
    if (taken != m_taken.end())
        m_taken.erase(taken); // unlocks and removes the lock file
}
