// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/themedocument.h"

#include <QDebug>

ThemeDocument::ThemeDocument(QObject *parent)
    : QObject(parent)
{
    const auto fields = themeFields();
    m_texts.resize(qsizetype(fields.size()));
    m_numbers.resize(qsizetype(fields.size()));
}

int ThemeDocument::requireIndex(QAnyStringView key)
{
    const int index = fieldIndex(key);
    if (index < 0) // only a misspelt key in our own code gets here
        qFatal("ThemeDocument: unknown field key %s", qPrintable(key.toString()));
    return index;
}

QString ThemeDocument::value(int index) const
{
    if (themeFields()[size_t(index)].kind == FieldKind::Text)
        return m_texts.at(index);
    return QString::number(m_numbers.at(index));
}

int ThemeDocument::number(int index) const
{
    return m_numbers.at(index);
}

bool ThemeDocument::setText(QAnyStringView key, const QString &text)
{
    return setValue(requireIndex(key), text);
}

bool ThemeDocument::setNumber(QAnyStringView key, int value)
{
    return setNumberAt(requireIndex(key), value);
}

bool ThemeDocument::setValue(int index, const QString &text)
{
    if (themeFields()[size_t(index)].kind != FieldKind::Text)
        return setNumberAt(index, text.trimmed().toInt());
    if (m_texts.at(index) == text)
        return false;
    m_texts[index] = text;
    markEdited(index);
    return true;
}

bool ThemeDocument::setNumberAt(int index, int value)
{
    const FieldKind kind = themeFields()[size_t(index)].kind;
    Q_ASSERT(kind != FieldKind::Text);
    const int highest = kind == FieldKind::Switch ? 2 : 1;
    if (value < 0 || value > highest)
        value = 0;
    if (m_numbers.at(index) == value)
        return false;
    m_numbers[index] = value;
    markEdited(index);
    return true;
}

void ThemeDocument::markEdited(int index)
{
    setDirty(true);
    emit fieldChanged(index);
}

void ThemeDocument::assignFrom(const ThemeDocument &other)
{
    m_texts = other.m_texts;
    m_numbers = other.m_numbers;
    m_currentThemeFile = other.m_currentThemeFile;
    m_packageFolder = other.m_packageFolder;
    m_packageFolderTail = other.m_packageFolderTail;
    m_musicFolder = other.m_musicFolder;
    m_dirty = other.m_dirty;
    m_swatches = other.m_swatches;
}

void ThemeDocument::takeTheme(const ThemeDocument &loaded)
{
    for (int i = 0; i < int(m_texts.size()); ++i) {
        if (m_texts.at(i) == loaded.m_texts.at(i) && m_numbers.at(i) == loaded.m_numbers.at(i))
            continue;
        m_texts[i] = loaded.m_texts.at(i);
        m_numbers[i] = loaded.m_numbers.at(i);
        emit fieldChanged(i);
    }
    for (int i = 0; i < int(m_swatches.size()); ++i) {
        if (m_swatches.at(size_t(i)) == loaded.m_swatches.at(size_t(i)))
            continue;
        m_swatches.at(size_t(i)) = loaded.m_swatches.at(size_t(i));
        emit swatchChanged(i);
    }
    setPackageFolder(loaded.m_packageFolder, loaded.m_packageFolderTail);
    setMusicFolder(loaded.m_musicFolder);
}

void ThemeDocument::resetTheme()
{
    m_currentThemeFile.clear();
    setPackageFolder(QString(), QString());

    // Table order already follows the reset's order, except that the type is chosen after
    // the interface fields; nothing observable depends on the position of the other sections.
    const auto fields = themeFields();
    const int typeIndex = requireIndex(FieldKey::themeType);
    for (int i = 0; i < int(fields.size()); ++i) {
        if (i == typeIndex || !fields[size_t(i)].defaultValue)
            continue;
        setValue(i, QString::fromLatin1(fields[size_t(i)].defaultValue));
        if (QLatin1StringView(fields[size_t(i)].key) == FieldKey::menuTransparent)
            setNumberAt(typeIndex, 1);
    }
    emit stateChanged();
    emit themeReset();
}

void ThemeDocument::setCurrentThemeFile(const QString &path)
{
    if (m_currentThemeFile == path)
        return;
    m_currentThemeFile = path;
    emit stateChanged();
}

void ThemeDocument::setPackageFolder(const QString &folder, const QString &tail)
{
    if (m_packageFolder == folder && m_packageFolderTail == tail)
        return;
    m_packageFolder = folder;
    m_packageFolderTail = tail;
    emit stateChanged();
}

void ThemeDocument::setMusicFolder(const QString &folder)
{
    if (m_musicFolder == folder)
        return;
    m_musicFolder = folder;
    emit stateChanged();
}

void ThemeDocument::setDirty(bool dirty)
{
    if (m_dirty == dirty)
        return;
    m_dirty = dirty;
    emit dirtyChanged(dirty);
}

void ThemeDocument::setSwatch(int i, quint32 colorValue)
{
    m_swatches.at(size_t(i)) = colorValue & 0xFFFFFFu;
    emit swatchChanged(i);
}
