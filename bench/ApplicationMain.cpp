// SPDX-License-Identifier: MIT
// For benchmarks that use the run loop with the wall clock: it needs Qt's application object.
#include <benchmark/benchmark.h>

#include <QCoreApplication>

int main(int argc, char** argv) {
    const QCoreApplication process(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
