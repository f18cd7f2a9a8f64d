// SPDX-License-Identifier: MIT
#pragma once

#include "document/Performance.h"
#include "model/Model.h"

namespace zelvo::document {

/// Does what the cues say, each in the first tick that reaches its time, and records it as a run
/// would, but at once and without showing it. The records come behind those that the model has.
void perform(const Performance& performance, model::Model& model);

} // namespace zelvo::document
