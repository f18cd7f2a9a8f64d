// SPDX-License-Identifier: MIT
#include "app/Commands.h"
#include "app/Export.h"
#include "app/WaveformPicture.h"
#include "platform/foundation/NewFile.h"
#include "platform/sound/Waveform.h"

#include <cstdio>

namespace zelvo::app {

int run(const WaveformCommand& command) {
    if (const auto writable = foundation::NewFile::check(command.out); !writable)
        return complain(writable.error(), ExitStatus::kFailed);
    StoppableLoop loop;
    sound::Waveform waveform(loop.runLoop(), {});
    waveform.load(command.song);
    loop.runLoop().runUntil([&] { return !waveform.isLoading() || loop.stopSignal() != 0; });
    if (loop.stopSignal() != 0)
        return stoppedBy(loop.stopSignal());
    if (waveform.error())
        return complain(*waveform.error(), ExitStatus::kWrong);
    const auto drawn = drawWaveform(waveform, command.song.stem().string(), command.size)
                           .and_then([&](const image::Image& picture) {
                               return image::savePNG(picture, command.out);
                           });
    if (!drawn)
        return complain(drawn.error(), ExitStatus::kFailed);
    (void)std::fputs((command.out.string() + "\n").c_str(), stdout);
    return ExitStatus::kDone;
}

} // namespace zelvo::app
