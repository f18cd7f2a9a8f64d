// SPDX-License-Identifier: MIT
#include "app/Commands.h"
#include "platform/foundation/Process.h"

int main(int argc, char** argv) {
    zelvo::foundation::prepareProcess();
    return zelvo::app::runCommandLine({argv + 1, argv + argc});
}
