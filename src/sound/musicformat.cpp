// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "sound/musicformat.h"

namespace {

struct Signature {
    qsizetype offset;
    const char *bytes;
};

// Every format the mixer library is built to play on the supported platforms.
constexpr Signature playableSignatures[] = {
    {0, "RIFF"},             // WAVE, and RMID for MIDI
    {0, "OggS"},             // Vorbis, Opus
    {0, "fLaC"},
    {0, "ID3"},              // MP3 with a tag in front
    {0, "IMPM"},             // Impulse Tracker
    {0, "Extended Module:"}, // FastTracker 2
    {44, "SCRM"},            // Scream Tracker 3
    {1080, "M.K."},          // ProTracker and its relatives
    {1080, "M!K!"},
    {1080, "FLT4"},
    {1080, "FLT8"},
    {1080, "4CHN"},
    {1080, "6CHN"},
    {1080, "8CHN"},
};

constexpr char asfHeaderGuid[] = "\x30\x26\xB2\x75\x8E\x66\xCF\x11";

QString extensionOf(const QString &path)
{
    const qsizetype dot = path.lastIndexOf(u'.');
    return dot < 0 ? QString() : path.mid(dot + 1).toLower();
}

bool isMpegFrameSync(const QByteArray &head)
{
    return head.size() >= 2 && quint8(head[0]) == 0xFF && (quint8(head[1]) & 0xE0) == 0xE0;
}

// The synthesiser reads MIDI tracks only once playing starts, so a broken header has to be
// caught here to be reported at all.
bool isWellFormedMidiHeader(const QByteArray &head)
{
    return head.mid(4, 4) == QByteArray::fromRawData("\0\0\0\6", 4) && head.mid(14, 4) == "MTrk";
}

} // namespace

MusicContent classifyMusicContent(const QByteArray &head, const QString &path)
{
    if (head.startsWith(QByteArray::fromRawData(asfHeaderGuid, 8)))
        return MusicContent::WindowsMedia;
    if (head.startsWith("MThd"))
        return isWellFormedMidiHeader(head) ? MusicContent::Playable : MusicContent::Damaged;
    for (const Signature &s : playableSignatures) {
        if (head.mid(s.offset).startsWith(s.bytes))
            return MusicContent::Playable;
    }
    if (isMpegFrameSync(head))
        return MusicContent::Playable;
    const QString extension = extensionOf(path);
    if (extension == u"wma" || extension == u"asf")
        return MusicContent::WindowsMedia;
    return extension == u"mod" ? MusicContent::Playable : MusicContent::Unrecognised;
}

bool isModuleSongName(const QString &path)
{
    static const char *const moduleExtensions[] = {"midi", "mid", "mod", "s3m", "xm", "it"};
    const QString extension = extensionOf(path);
    for (const char *module : moduleExtensions) {
        if (extension == QLatin1StringView(module))
            return true;
    }
    return false;
}
