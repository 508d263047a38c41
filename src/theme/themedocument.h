// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "theme/themefields.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVector>

#include <array>
#include <optional>

/**
 * The one theme being edited, plus the editor-wide state that travels with it
 * (current file, unpacked package folder, music folder, unsaved-changes flag, swatches).
 *
 * Every field is addressed by its key name (themeFields()). Any write that changes a value,
 * whoever makes it, counts as an edit: it sets the dirty flag and emits fieldChanged(), so
 * views bound to the document follow resets and loads exactly as they follow typing.
 */
class ThemeDocument : public QObject
{
    Q_OBJECT

public:
    explicit ThemeDocument(QObject *parent = nullptr);

    /** The field's value as text; switches and the type index as their decimal number. */
    QString value(int index) const;
    QString value(QAnyStringView key) const { return value(requireIndex(key)); }
    /** The numeric value of a switch or the type index; 0 for text fields. */
    int number(int index) const;
    int number(QAnyStringView key) const { return number(requireIndex(key)); }

    /** Writes a text field; returns true when the value changed. */
    bool setText(QAnyStringView key, const QString &text);
    /** Writes a switch (0, 1, 2) or the type index (0, 1); returns true when it changed. */
    bool setNumber(QAnyStringView key, int value);
    bool setValue(int index, const QString &text);
    bool setNumberAt(int index, int value);

    /** True when the switch is exactly 1, the only value that counts as on. */
    bool isOn(QAnyStringView key) const { return number(key) == 1; }

    /**
     * Makes this document a copy of \a other, editor-wide state and swatches included, without
     * emitting anything: for a private copy that no view follows.
     */
    void assignFrom(const ThemeDocument &other);

    /**
     * Makes this document the theme \a loaded holds (fields, swatches, package and music folder),
     * announcing each change as an edit does, without marking anything unsaved: how a load that
     * succeeded replaces the theme. The current file and the dirty flag are the caller's.
     */
    void takeTheme(const ThemeDocument &loaded);

    /** Puts the document and editor state into the New-theme state. */
    void resetTheme();

    // Editor-wide state beside the document.
    QString currentThemeFile() const { return m_currentThemeFile; }
    QString packageFolder() const { return m_packageFolder; }
    QString packageFolderTail() const { return m_packageFolderTail; }
    QString musicFolder() const { return m_musicFolder; }
    bool isDirty() const { return m_dirty; }
    void setCurrentThemeFile(const QString &path);
    void setPackageFolder(const QString &folder, const QString &tail);
    void setMusicFolder(const QString &folder);
    void setDirty(bool dirty);

    /** Swatch colour i as red + 256 green + 65536 blue; empty until chosen or loaded. */
    std::optional<quint32> swatch(int i) const { return m_swatches.at(size_t(i)); }
    void setSwatch(int i, quint32 colorValue);

    static int requireIndex(QAnyStringView key);

signals:
    void fieldChanged(int index);
    void dirtyChanged(bool dirty);
    /** Current file, package folder or music folder changed. */
    void stateChanged();
    void swatchChanged(int i);
    /** A reset finished: views stop their preview timers. */
    void themeReset();

private:
    void markEdited(int index);

    QStringList m_texts;
    QVector<int> m_numbers;
    QString m_currentThemeFile;
    QString m_packageFolder;
    QString m_packageFolderTail;
    QString m_musicFolder;
    bool m_dirty = false;
    std::array<std::optional<quint32>, std::size(colorKeys)> m_swatches;
};
