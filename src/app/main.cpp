// SPDX-License-Identifier: MIT
#include "app/Commands.h"

int main(int argc, char** argv) {
    return zelvo::app::runCommandLine({argv + 1, argv + argc});
}
