#pragma once

#include <QObject>

class EditorDialogs;
class FileCommands;
class MainWindow;
class SoundSystem;
class ThemeDocument;

/**
 * Connects the window's Browse, play and music buttons to the field-editing and sound code,
 * and loads a .skt file dropped on the window through the Load command's save guard.
 * Controls are found by their object names, also on pages built later, so the window needs
 * no knowledge of this.
 */
class ButtonBinding : public QObject
{
    Q_OBJECT

public:
    ButtonBinding(MainWindow &window, ThemeDocument &doc, EditorDialogs &dialogs, SoundSystem &sound,
                  FileCommands &commands);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void toggleMusic();

    MainWindow &m_window;
    ThemeDocument &m_doc;
    EditorDialogs &m_dialogs;
    SoundSystem &m_sound;
    FileCommands &m_commands;
};
