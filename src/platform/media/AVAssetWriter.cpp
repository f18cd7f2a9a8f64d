// SPDX-License-Identifier: MIT
#include "platform/media/AVAssetWriter.h"

#include "platform/foundation/Check.h"
#include "platform/media/FrameEncoder.h"

#include <utility>

namespace zelvo::media {

using foundation::Result;

AVAssetWriterInput::AVAssetWriterInput(const VideoSettings& outputSettings)
    : outputSettings_(outputSettings) {}

bool AVAssetWriterInput::isReadyForMoreMediaData() const {
    return encoder != nullptr && encoder->isReady();
}

void AVAssetWriterInput::waitUntilReady() const {
    CHECK(encoder != nullptr, "waiting for a writer that has not started");
    encoder->waitUntilReady();
}

AVAssetWriterInputPixelBufferAdaptor::AVAssetWriterInputPixelBufferAdaptor(
    AVAssetWriterInput& assetInput, PixelBufferPool picturePool)
    : input(assetInput)
    , pool(std::move(picturePool)) {}

Result<void> AVAssetWriterInputPixelBufferAdaptor::appendPixelBuffer(
    PixelBuffer picture, CMTime presentationTime) {
    CHECK(input.encoder != nullptr, "a frame was appended before writing has started");
    CHECK(!picture.isEmpty(), "an empty picture is no frame");
    return input.encoder->append(std::move(picture), presentationTime);
}

Result<std::unique_ptr<AVAssetWriter>> AVAssetWriter::create(const std::filesystem::path& path) {
    // Temporary: this file is only an intermediate step of the movie.
    auto file =
        MovieFile::create(path, MovieFile::Layout::indexLast, foundation::NewFile::Use::temporary);
    if (!file)
        return tl::unexpected(file.error());
    auto encoder = std::make_unique<FrameEncoder>(std::move(*file));
    return std::unique_ptr<AVAssetWriter>(new AVAssetWriter(std::move(encoder)));
}

AVAssetWriter::AVAssetWriter(std::unique_ptr<FrameEncoder> frameEncoder)
    : encoder(std::move(frameEncoder)) {}

AVAssetWriter::~AVAssetWriter() = default;

bool AVAssetWriter::canAddInput() const {
    return !input && status() == Status::unknown;
}

AVAssetWriterInput& AVAssetWriter::addInput(std::unique_ptr<AVAssetWriterInput> newInput) {
    CHECK(canAddInput(), "a movie has one video input, added before writing starts");
    input = std::move(newInput);
    return *input;
}

Result<void> AVAssetWriter::startWriting() {
    CHECK(input, "a movie needs its video input before writing starts");
    auto started = encoder->start(input->outputSettings());
    input->encoder = encoder.get();
    return started;
}

void AVAssetWriter::startSessionAtSourceTime(CMTime time) {
    encoder->setSessionStart(time);
}

AVAssetWriter::Status AVAssetWriter::status() const {
    return encoder->status();
}

foundation::Error AVAssetWriter::error() const {
    return encoder->error();
}

void AVAssetWriter::finishWritingWithCompletionHandler(std::function<void()> completion) {
    encoder->finish(std::move(completion));
}

void AVAssetWriter::cancelWriting() {
    encoder->cancel();
}

double AVAssetWriter::encodingSeconds() const {
    return encoder->encodingSeconds();
}

} // namespace zelvo::media
