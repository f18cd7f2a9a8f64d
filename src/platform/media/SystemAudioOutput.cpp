// SPDX-License-Identifier: MIT
#include "platform/foundation/Check.h"
#include "platform/foundation/Console.h"
#include "platform/media/AudioOutput.h"
#include "platform/media/AudioReader.h"

#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioSink>
#include <QCoreApplication>
#include <QIODevice>
#include <QMediaDevices>
#include <QTimer>

#include <cstring>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace zelvo::media {
namespace {

/// Size of the device's buffer: long enough to avoid drop-outs while the interface draws, short
/// enough for exact fades.
constexpr int kBufferMs = 80;

constexpr int kLookMs = 500; ///< how soon a lost or new device is noticed

constexpr qint64 kBytesPerFrame = qint64{AudioReader::kChannels} * qint64{sizeof(float)};

QAudioFormat stereoFloat() {
    QAudioFormat format;
    format.setSampleRate(AudioReader::kSampleRate);
    format.setChannelCount(AudioReader::kChannels);
    format.setSampleFormat(QAudioFormat::Float);
    return format;
}

/// The endless stream that the audio sink reads.
class SourceDevice final : public QIODevice {
public:
    void setSource(AudioOutput::Source newSource) {
        const std::lock_guard lock(mutex);
        source = std::move(newSource);
    }

    [[nodiscard]] bool isSequential() const override { return true; }

    [[nodiscard]] qint64 bytesAvailable() const override {
        return AudioReader::kSampleRate * kBytesPerFrame + QIODevice::bytesAvailable();
    }

protected:
    qint64 readData(char* data, qint64 bytes) override {
        const std::lock_guard lock(mutex);
        const qint64 whole = bytes - bytes % kBytesPerFrame;
        block.assign(static_cast<std::size_t>(whole) / sizeof(float), 0.0F);
        if (source)
            source(block);
        std::memcpy(data, block.data(), static_cast<std::size_t>(whole));
        return whole;
    }

    qint64 writeData(const char* /*data*/, qint64 /*bytes*/) override { return -1; }

private:
    std::mutex mutex; // guards source and block
    AudioOutput::Source source;
    std::vector<float> block;
};

/// Follows the default device while it plays: headphones come and go.
class SystemAudioOutput final : public AudioOutput {
public:
    SystemAudioOutput() {
        stream.open(QIODevice::ReadOnly | QIODevice::Unbuffered);
        draining.setSingleShot(true);
        QObject::connect(&draining, &QTimer::timeout, [this] { release(); });
        QObject::connect(
            &devices, &QMediaDevices::audioOutputsChanged, [this] { followDefaultDevice(); });
        // With PulseAudio, Qt 6.4 does not tell of a change, so the program looks itself.
        QObject::connect(&looking, &QTimer::timeout, [this] { followDefaultDevice(); });
    }

    ~SystemAudioOutput() override { release(); }

    SystemAudioOutput(const SystemAudioOutput&) = delete;
    SystemAudioOutput& operator=(const SystemAudioOutput&) = delete;

    void start(Source source) override {
        CHECK(!isStarted, "the sound device plays already");
        release();
        isStarted = true;
        stream.setSource(std::move(source));
        openSink();
        looking.start(kLookMs);
    }

    void stop() override {
        isStarted = false;
        looking.stop();
        stream.setSource({});
        release(); // drops the buffer, so it is silent at once
    }

    void finish() override {
        isStarted = false;
        looking.stop();
        stream.setSource({}); // silence from now on
        draining.start(2 * kBufferMs);
    }

private:
    void openSink() {
        device = QMediaDevices::defaultAudioOutput();
        if (device.isNull() || !device.isFormatSupported(stereoFloat()))
            return;
        sink = std::make_unique<QAudioSink>(device, stereoFloat());
        sink->setBufferSize(
            static_cast<int>(kBytesPerFrame * AudioReader::kSampleRate * kBufferMs / 1000));
        sink->start(&stream);
        if (sink->error() != QAudio::NoError && !std::exchange(hasComplained, true))
            foundation::logLine("The sound device does not start.");
    }

    void release() {
        draining.stop();
        if (sink)
            sink->reset();
        sink.reset();
    }

    void followDefaultDevice() {
        const bool isLost = sink && sink->state() == QAudio::StoppedState;
        if (!isStarted || (!isLost && QMediaDevices::defaultAudioOutput() == device))
            return;
        if (onDeviceChange)
            onDeviceChange(); // stops, and starts where the song is now
    }

    SourceDevice stream; // must outlive the sink, which reads it
    QMediaDevices devices;
    QAudioDevice device;
    std::unique_ptr<QAudioSink> sink; ///< null while there is no device
    QTimer draining;
    QTimer looking;
    bool isStarted = false;
    bool hasComplained = false;
};

} // namespace

std::unique_ptr<AudioOutput> makeSystemAudioOutput() {
    if (QCoreApplication::instance() == nullptr)
        return nullptr;
    return std::make_unique<SystemAudioOutput>();
}

} // namespace zelvo::media
