#pragma once

#include <QString>

#include <optional>

/**
 * Everything the core asks of the person at the keyboard. The editor answers with real
 * dialogs, the command line with stderr and a terminal prompt, tests with scripted answers.
 * Cancelling any of them is a plain "not done" answer, never an error.
 */
class Dialogs
{
public:
    enum class Icon { Critical, Exclamation, Information, Question };
    enum class Buttons { Ok, YesNoCancel };
    enum class Answer { Ok, Yes, No, Cancel };

    virtual ~Dialogs() = default;

    virtual Answer messageBox(const QString &title, const QString &text, Icon icon,
                              Buttons buttons = Buttons::Ok) = 0;

    /** A text input box; nullopt when cancelled. */
    virtual std::optional<QString> inputBox(const QString &prompt, const QString &title) = 0;

    /**
     * Open-file dialog. \a filter is in the "Description|pattern|...|" form; \a initialFolder
     * empty means "where the last dialog was". Returns the chosen path, or "" when cancelled.
     */
    virtual QString openFileName(const QString &filter, const QString &initialFolder) = 0;

    /** Save-file dialog, same conventions; no extension is added and no overwrite question. */
    virtual QString saveFileName(const QString &filter) = 0;

    /** The colour dialog; the chosen colour as red + 256 green + 65536 blue, or nullopt. */
    virtual std::optional<quint32> chooseColor() = 0;

    /** Shorthand for the system's usual error box: title "Error", critical icon, OK. */
    void error(const QString &text) { messageBox(QStringLiteral("Error"), text, Icon::Critical); }
};
