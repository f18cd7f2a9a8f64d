// SPDX-License-Identifier: MIT
#pragma once

#include "platform/foundation/Result.h"
#include "platform/image/Image.h"

#include <mutex>
#include <string>

namespace zelvo::image {

/// The resource picture with this name, and its light probe if there is one
/// ("Environment001.jpg.probe" for "Environment001.jpg"). Results are cached, so a name always gives
/// the same object. Errors: `notFound`, and those of loadImage. Any thread.
[[nodiscard]] foundation::Result<ImagePtr> imageNamed(const std::string& name);

/// The same for a picture that belongs to the program: where it is missing or damaged, the process
/// ends with a line that says so.
[[nodiscard]] ImagePtr requiredImage(const std::string& name);

/// The same, with its light probe.
[[nodiscard]] ImagePtr requiredEnvironment(const std::string& name);

/// A picture that belongs to the program and is read when it is first asked for: of all that styles
/// can show, a title shows a few. Any thread.
class LazyImage {
public:
    /// Ends the process with a line that says so where the file is missing.
    explicit LazyImage(std::string resourceName);

    /// Never null.
    [[nodiscard]] const ImagePtr& image() const;

private:
    std::string name;
    mutable std::once_flag isRead;
    mutable ImagePtr read;
};

} // namespace zelvo::image
