// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sound/mixersettings.h"

#include "common/ansitext.h"
#include "common/numbertext.h"
#include "common/profilereader.h"
#include "common/safefile.h"
#include "common/settingsfiles.h"

#include <QCoreApplication>
#include <QDir>

#include <cmath>
#include <limits>
#include <optional>

namespace {

const QString mixerSection = QStringLiteral("Sound Mixer");

// Outputs are recognised by their exact text only: "2.5" or "02" pass the range check
// but select nothing, which leaves the output as it was.
const QString outputTexts[] = {QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("2"),
                               QStringLiteral("3")};

// Whole numbers as the author typed them; fractions round half to even, as everywhere else.
std::optional<qint32> integerOf(const QString &text)
{
    const std::optional<double> number = storedNumber(text);
    if (!number)
        return std::nullopt;
    const double rounded = roundHalfEven(*number);
    if (rounded < std::numeric_limits<qint32>::min() || rounded > std::numeric_limits<qint32>::max())
        return std::nullopt;
    return qint32(rounded);
}

qint32 integerSetting(const ProfileFile &file, const QString &key, qint32 fallback)
{
    const QString text = file.text(mixerSection, key);
    if (text == missingValueMarker())
        return fallback;
    return integerOf(text).value_or(fallback);
}

} // namespace

void readEditorConfig(EditorConfig &config, const QString &path)
{
    const ProfileFile file = ProfileFile::open(path);

    config.frequency = integerSetting(file, QStringLiteral("frequency"), 44100);

    QString output = file.text(mixerSection, QStringLiteral("output"));
    const std::optional<double> outputNumber = storedNumber(output);
    if (output == missingValueMarker() || !outputNumber || *outputNumber < 0 || *outputNumber > 3)
        output = outputTexts[1];
    for (qint32 type = 0; type < 4; ++type) {
        if (output == outputTexts[type]) {
            config.output = type;
            break;
        }
    }

    config.numchannels = integerSetting(file, QStringLiteral("numchannels"), 8);
}

Result<void> writeEditorConfig(const EditorConfig &config, const QString &path)
{
    const QString text = QStringLiteral("//Stakko Theme Maker Configuration\r\n"
                                        " \r\n"
                                        "[Sound Mixer]\r\n"
                                        "frequency=%1\r\n"
                                        "numchannels=%2\r\n"
                                        "//0-NoSound,1-WinMM,2-DirectSound,3-A3D, #1 is recommended\r\n"
                                        "output=%3\r\n")
                             .arg(config.frequency)
                             .arg(config.numchannels)
                             .arg(config.output);
    QByteArray bytes;
    AnsiText::encode(text, &bytes); // digits and ASCII only: always encodable

    if (const Result<void> written = writeWholeFile(path, bytes); !written)
        return Result<void>::fail(
            QCoreApplication::translate("MixerSettings", "Cannot write %1: %2").arg(QDir::toNativeSeparators(path), written.errorText()), {}, path);
    return {};
}

QString editorConfigWritePath()
{
    return settingsWritePath(SettingsFile::Mixer);
}

QString editorConfigReadPath()
{
    return settingsReadPath(SettingsFile::Mixer);
}
