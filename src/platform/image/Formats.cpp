// SPDX-License-Identifier: MIT
#include "platform/image/Formats.h"

#include <QImageWriter>

namespace zelvo::image {

void loadFormats() {
    static_cast<void>(QImageWriter::supportedImageFormats());
}

} // namespace zelvo::image
