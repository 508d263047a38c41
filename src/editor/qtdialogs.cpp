// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "editor/qtdialogs.h"

#include "editing/fieldbrowsing.h"

#include <QColorDialog>
#include <QCoreApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

QtDialogs::QtDialogs(QWidget *parent)
    : m_parent(parent)
{
}

Dialogs::Answer QtDialogs::askYesNoCancel(const QString &title, const QString &text)
{
    return askToSave(title, text, {});
}

Dialogs::Answer QtDialogs::askToSave(const QString &title, const QString &text, const QString &file)
{
    QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel,
                    m_parent);
    if (!file.isEmpty())
        box.setInformativeText(QCoreApplication::translate("QtDialogs", "Unsaved changes to %1").arg(file));
    box.setDefaultButton(QMessageBox::Yes);
    box.setEscapeButton(QMessageBox::Cancel);
    switch (box.exec()) {
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}

Dialogs::Answer QtDialogs::askYesNo(const QString &title, const QString &text)
{
    return QMessageBox::question(m_parent, title, text, QMessageBox::Yes | QMessageBox::No, QMessageBox::No)
            == QMessageBox::Yes
        ? Answer::Yes
        : Answer::No;
}

int QtDialogs::choose(const QString &title, const QString &text, const QStringList &choices)
{
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::NoButton, m_parent);
    QList<QAbstractButton *> buttons;
    for (const QString &choice : choices)
        buttons.append(box.addButton(choice, QMessageBox::AcceptRole));
    if (!buttons.isEmpty())
        box.setDefaultButton(qobject_cast<QPushButton *>(buttons.first()));
    box.exec();
    return int(buttons.indexOf(box.clickedButton()));
}

QString QtDialogs::chooseFolder(const QString &title)
{
    const QString chosen = QFileDialog::getExistingDirectory(m_parent, title, nextDialogFolder(),
                                                             QFileDialog::DontUseNativeDialog);
    if (chosen.isEmpty())
        return QString();
    m_lastChosen = chosen;
    return QDir::toNativeSeparators(chosen);
}

void QtDialogs::show(const Report &report)
{
    static constexpr QMessageBox::Icon icons[] = {QMessageBox::Information, QMessageBox::Warning,
                                                  QMessageBox::Critical};
    for (const Problem &p : report.problems) {
        QMessageBox box(icons[int(p.severity)], p.shownTitle(), p.text, QMessageBox::Ok, m_parent);
        box.exec();
    }
}

std::optional<QString> QtDialogs::inputBox(const QString &prompt, const QString &title)
{
    bool ok = false;
    const QString text = QInputDialog::getText(m_parent, title, prompt, QLineEdit::Normal, QString(), &ok);
    if (!ok)
        return std::nullopt;
    return text;
}

QString QtDialogs::openFileName(const QString &filter, const QString &initialFolder)
{
    m_folder = initialFolder;
    return runFileDialog(filter, false);
}

QString QtDialogs::saveFileName(const QString &filter, const QString &proposedName)
{
    return runFileDialog(filter, true, proposedName);
}

std::optional<quint32> QtDialogs::chooseColor()
{
    const QColor color = QColorDialog::getColor(m_lastColor, m_parent);
    if (!color.isValid())
        return std::nullopt;
    m_lastColor = color;
    return quint32(color.red()) + 256u * quint32(color.green()) + 65536u * quint32(color.blue());
}

QStringList QtDialogs::qtNameFilters(const QString &filter)
{
    QStringList parts = filter.split(QLatin1Char('|'));
    if (!parts.isEmpty() && parts.last().isEmpty())
        parts.removeLast();
    QStringList result;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QStringList patterns = parts.at(i + 1).split(QLatin1Char(';'), Qt::SkipEmptyParts);
        for (QString &pattern : patterns)
            pattern = pattern.trimmed();
        result.append(QCoreApplication::translate("FileFilter", parts.at(i).toUtf8().constData()) + QStringLiteral(" (") + patterns.join(QLatin1Char(' '))
                      + QLatin1Char(')'));
    }
    return result;
}

QString QtDialogs::nextDialogFolder() const
{
    return m_folder.isEmpty() ? m_lastChosen : m_folder;
}

QString QtDialogs::runFileDialog(const QString &filter, bool save, const QString &proposedName)
{
    QFileDialog dialog(m_parent);
    // The patterns come from Windows themes and are often upper case: Qt's own dialog matches
    // them regardless of case, where a native one may hide "bg1.bmp" behind "*.BMP".
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setNameFilters(qtNameFilters(filter));
    // Nothing has to exist yet, since the loader reports a theme file it cannot read.
    dialog.setFileMode(QFileDialog::AnyFile);
    if (save) {
        dialog.setAcceptMode(QFileDialog::AcceptSave);
        dialog.setOption(QFileDialog::DontConfirmOverwrite);
        dialog.setDefaultSuffix(filterExtensions(QLatin1StringView(filter.toLatin1())).value(0));
    }
    const QString folder = nextDialogFolder();
    if (!folder.isEmpty())
        dialog.setDirectory(folder);
    if (!proposedName.isEmpty())
        dialog.selectFile(proposedName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return QString();
    const QString chosen = dialog.selectedFiles().constFirst();
    m_lastChosen = QFileInfo(chosen).absolutePath();
    return QDir::toNativeSeparators(chosen);
}
