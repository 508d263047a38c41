// SPDX-FileCopyrightText: 2026 The Stakko Theme Maker developers
// SPDX-License-Identifier: GPL-3.0-or-later

#include "art/soundconvert.h"

#include "art/soundlibraries.h"
#include "editing/fieldbrowsing.h"
#include "sound/musicformat.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstring>
#include <vector>

namespace {

const SndfileLibrary &sndfile() { return sndfileLibrary().value(); }
const SamplerateLibrary &samplerate() { return samplerateLibrary().value(); }

// libsndfile writes into memory through these, so the file itself goes through one safe write.
struct MemoryFile {
    QByteArray bytes;
    sf_count_t position = 0;
};

sf_count_t memoryLength(void *user) { return static_cast<MemoryFile *>(user)->bytes.size(); }

sf_count_t memorySeek(sf_count_t offset, int whence, void *user)
{
    auto *m = static_cast<MemoryFile *>(user);
    const sf_count_t base = whence == SEEK_CUR ? m->position : whence == SEEK_END ? m->bytes.size() : 0;
    if (base + offset < 0)
        return -1;
    m->position = base + offset;
    return m->position;
}

sf_count_t memoryRead(void *ptr, sf_count_t count, void *user)
{
    auto *m = static_cast<MemoryFile *>(user);
    const sf_count_t n = std::max<sf_count_t>(0, std::min<sf_count_t>(count, m->bytes.size() - m->position));
    std::memcpy(ptr, m->bytes.constData() + m->position, size_t(n));
    m->position += n;
    return n;
}

sf_count_t memoryWrite(const void *ptr, sf_count_t count, void *user)
{
    auto *m = static_cast<MemoryFile *>(user);
    if (m->position + count > m->bytes.size())
        m->bytes.resize(m->position + count);
    std::memcpy(m->bytes.data() + m->position, ptr, size_t(count));
    m->position += count;
    return count;
}

sf_count_t memoryTell(void *user) { return static_cast<MemoryFile *>(user)->position; }

struct Samples {
    std::vector<float> data; // interleaved
    int rate = 0;
    int channels = 0;
};

QString shown(const QString &path) { return QDir::toNativeSeparators(path); }

bool readSamples(const QString &source, Samples &out, ConvertedSound &report)
{
    // Both before any work: reading a sound it could not resample would help nobody.
    for (const QString &problem : {sndfileLibrary().errorText(), samplerateLibrary().errorText()}) {
        if (!problem.isEmpty()) {
            report.error(QCoreApplication::translate("SoundConvert", "%1 could not be converted: %2.").arg(shown(source), problem),
                         {}, source);
            return false;
        }
    }
    SF_INFO info{};
    SNDFILE *file = sndfile().sf_open(QFile::encodeName(source).constData(), SFM_READ, &info);
    if (!file) {
        report.error(QCoreApplication::translate("SoundConvert", "%1 could not be read as a sound: %2.")
                         .arg(shown(source), QString::fromLocal8Bit(sndfile().sf_strerror(nullptr))),
                     {}, source);
        return false;
    }
    out.rate = info.samplerate;
    out.channels = info.channels;
    // Some decoders know their length only roughly: read until they stop.
    std::vector<float> chunk(size_t(4096 * info.channels));
    for (;;) {
        const sf_count_t got = sndfile().sf_readf_float(file, chunk.data(), 4096);
        if (got <= 0)
            break;
        out.data.insert(out.data.end(), chunk.begin(), chunk.begin() + got * info.channels);
    }
    const int error = sndfile().sf_error(file);
    const QString reason = QString::fromLocal8Bit(sndfile().sf_strerror(file));
    sndfile().sf_close(file);
    if (error != SF_ERR_NO_ERROR || out.data.empty()) {
        report.error(QCoreApplication::translate("SoundConvert", "%1 could not be read as a sound: %2.")
                         .arg(shown(source), out.data.empty() ? QCoreApplication::translate("SoundConvert", "it holds no samples") : reason),
                     {}, source);
        return false;
    }
    return true;
}

bool resample(Samples &samples, int rate, ConvertedSound &report, const QString &source)
{
    const double ratio = double(rate) / samples.rate;
    const long inFrames = long(samples.data.size() / size_t(samples.channels));
    std::vector<float> out(size_t((double(inFrames) * ratio + 16) * samples.channels));
    SRC_DATA data{};
    data.data_in = samples.data.data();
    data.input_frames = inFrames;
    data.data_out = out.data();
    data.output_frames = long(out.size() / size_t(samples.channels));
    data.src_ratio = ratio;
    data.end_of_input = 1;
    const int error = samplerate().src_simple(&data, SRC_SINC_MEDIUM_QUALITY, samples.channels);
    if (error != 0) {
        report.error(QCoreApplication::translate("SoundConvert", "%1 could not be resampled: %2.").arg(shown(source), QString::fromLatin1(samplerate().src_strerror(error))),
                     {}, source);
        return false;
    }
    out.resize(size_t(data.output_frames_gen * samples.channels));
    samples.data = std::move(out);
    samples.rate = rate;
    return true;
}

bool encode(const Samples &samples, int format, ConvertedSound &report, const QString &source)
{
    MemoryFile memory;
    SF_VIRTUAL_IO io{memoryLength, memorySeek, memoryRead, memoryWrite, memoryTell};
    SF_INFO info{};
    info.samplerate = samples.rate;
    info.channels = samples.channels;
    info.format = format;
    SNDFILE *file = sndfile().sf_open_virtual(&io, SFM_WRITE, &info, &memory);
    if (!file) {
        report.error(QCoreApplication::translate("SoundConvert", "%1 could not be converted: %2.").arg(shown(source), QString::fromLocal8Bit(sndfile().sf_strerror(nullptr))),
                     {}, source);
        return false;
    }
    sndfile().sf_command(file, SFC_SET_CLIPPING, nullptr, SF_TRUE);
    const sf_count_t frames = sf_count_t(samples.data.size() / size_t(samples.channels));
    const bool whole = sndfile().sf_writef_float(file, samples.data.data(), frames) == frames;
    const QString reason = QString::fromLocal8Bit(sndfile().sf_strerror(file));
    if (sndfile().sf_close(file) != 0 || !whole) {
        report.error(QCoreApplication::translate("SoundConvert", "%1 could not be converted: %2.").arg(shown(source), reason), {}, source);
        return false;
    }
    report.bytes = std::move(memory.bytes);
    return true;
}

bool isGameMusic(const QString &source, ConvertedSound &report)
{
    const QString suffix = QFileInfo(source).suffix().toLower();
    if (!filterExtensions(musicFilter).contains(suffix, Qt::CaseInsensitive))
        return false;
    QFile file(source);
    if (!file.open(QIODevice::ReadOnly)) {
        report.error(QCoreApplication::translate("SoundConvert", "%1 could not be read: %2.").arg(shown(source), file.errorString()), {}, source);
        return false;
    }
    const QByteArray bytes = file.readAll();
    if (classifyMusicContent(bytes.left(musicHeaderLength), source) != MusicContent::Playable)
        return false;
    report.bytes = bytes;
    report.extension = suffix;
    report.copied = true;
    return true;
}

} // namespace

ConvertedSound convertGameSound(const QString &source)
{
    ConvertedSound out;
    Samples samples;
    if (!readSamples(source, samples, out))
        return out;
    if (std::find(std::begin(gameSampleRates), std::end(gameSampleRates), samples.rate) == std::end(gameSampleRates)
        && !resample(samples, std::end(gameSampleRates)[-1], out, source))
        return out;
    if (encode(samples, SF_FORMAT_WAV | SF_FORMAT_PCM_16, out, source))
        out.extension = QStringLiteral("wav");
    return out;
}

ConvertedSound convertGameMusic(const QString &source)
{
    ConvertedSound out;
    if (isGameMusic(source, out) || out.hasErrors())
        return out;
    Samples samples;
    if (readSamples(source, samples, out) && encode(samples, SF_FORMAT_OGG | SF_FORMAT_VORBIS, out, source))
        out.extension = QStringLiteral("ogg");
    return out;
}
