// SPDX-License-Identifier: MIT
#pragma once

namespace zelvo::image {

/// Loads what reads and writes files of pictures. Call it in the main thread before other threads
/// save pictures: Qt loads its plugins in the thread that first needs one, and frees them at exit.
/// If that thread has ended, freed memory is used, and the process may end with an error.
void loadFormats();

} // namespace zelvo::image
