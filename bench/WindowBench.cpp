// SPDX-License-Identifier: MIT
// How fast the application reacts: time to the first picture, change of panels, answer to a press,
// frames a second of the live stage, and memory growth. A program of its own, because it needs a
// display:
//   xvfb-run -a -s "-screen 0 1280x720x24" build/release/bench/window_bench [OPTION] [PICTURES]
// --soak  fifty runs and many changes of the environment, then the memory left in use
// --busy  length of a run, and time of a press, beside four busy processes
#include "app/Application.h"
#include "app/Stopwatch.h"
#include "ui/menus/ActionsMenu.h"

#include <fmt/format.h>
#include <malloc.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QGuiApplication>
#include <QImage>
#include <QQuickWindow>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

using namespace zelvo;

constexpr int kRuns = 50;
constexpr int kScenes = 11;
constexpr int kRounds = 4; ///< how often each is visited
constexpr double kShortRun = 2;
constexpr double kPressPace = 0.1;

/// Four busy processes, for as long as this object lives.
class BusyMachine {
public:
    BusyMachine() {
        for (pid_t& process : processes) {
            process = fork();
            if (process != 0)
                continue;
            prctl(PR_SET_PDEATHSIG, SIGKILL);
            for (volatile bool isBusy = true; isBusy;) {
            }
        }
    }

    ~BusyMachine() {
        for (const pid_t process : processes) {
            kill(process, SIGKILL);
            waitpid(process, nullptr, 0);
        }
    }

    BusyMachine(const BusyMachine&) = delete;
    BusyMachine& operator=(const BusyMachine&) = delete;

private:
    std::array<pid_t, 4> processes{};
};

class Session {
public:
    explicit Session(QString pictureFolder)
        : start(app::stopwatchSeconds())
        , application(foundation::Folders::below("/tmp/zelvo-window-bench"))
        , pictures(std::move(pictureFolder)) {
        application.window()->resize(960, 540);
        application.window()->show();
    }

    void measure() {
        wait([this] { return stage().framesShown() > 0; });
        report("start to first picture", since(start) * 1000, "ms");
        waitFor(3);
        picture("style");
        measureRest();
        measurePanel();
        waitFor(1);
        picture("catalogue");
        measureRun();
        measurePress();
        application.main.controlMenu.showHistory();
        waitFor(1);
        picture("history");
    }

    void soak() {
        wait([this] { return stage().framesShown() > 0; });
        application.main.showAnim();
        model::Model& model = application.model();
        model.setDuration(kShortRun);
        swapScenes(); // afterwards, all caches are filled
        run();
        reportMemory("at first");
        for (int runs = 10; runs <= kRuns; runs += 10) {
            for (int i = 0; i < 10; ++i)
                run();
            reportMemory(fmt::format("after {} runs", runs));
        }
        for (int rounds = 1; rounds <= kRounds; ++rounds) {
            swapScenes();
            reportMemory(fmt::format("after {} swaps", rounds * kScenes));
        }
    }

    /// Plays animations of the catalogue in every environment.
    void measureClock() {
        wait([this] { return stage().framesShown() > 0; });
        application.main.showAnim();
        for (int scene = 0; scene < kScenes; ++scene) {
            application.model().setScene(scene);
            waitFor(1);
            measureClockIn(scene);
        }
    }

private:
    [[nodiscard]] ui::Stage& stage() { return application.main.stage; }

    [[nodiscard]] ui::ActionsMenu* catalogue() const {
        return qobject_cast<ui::ActionsMenu*>(application.main.panel());
    }

    static double since(double moment) { return app::stopwatchSeconds() - moment; }

    template <class Done> void wait(Done done) { (void)application.runLoop().runUntil(done); }

    void waitFor(double seconds) {
        bool isOver = false;
        const auto timer =
            application.runLoop().scheduleOnce(seconds, [&isOver] { isOver = true; });
        wait([&isOver] { return isOver; });
    }

    double framesASecond(double seconds) {
        const int before = stage().framesShown();
        const double began = app::stopwatchSeconds();
        waitFor(seconds);
        return (stage().framesShown() - before) / since(began);
    }

    void measureRest() {
        const double before = processorSeconds();
        waitFor(4);
        report("processor at rest", (processorSeconds() - before) / 4 * 100, "%");
    }

    static double processorSeconds() {
        rusage use{};
        getrusage(RUSAGE_SELF, &use);
        const auto seconds = [](const timeval& time) {
            return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
        };
        return seconds(use.ru_utime) + seconds(use.ru_stime);
    }

    void measurePanel() {
        double worst = 0;
        for (int i = 0; i < 6; ++i) {
            const double began = app::stopwatchSeconds();
            if (i % 2 == 0) {
                application.main.showAnim();
            } else {
                application.main.showLayouterMenu();
            }
            QCoreApplication::processEvents();
            worst = std::max(worst, since(began));
            waitFor(0.3);
        }
        report("switch of panels, worst", worst * 1000, "ms");
        application.main.showAnim();
    }

    void measureRun() {
        model::Model& model = application.model();
        const double began = app::stopwatchSeconds();
        model.start();
        waitFor(model.startCounter());
        catalogue()->pressButton(0);
        catalogue()->releaseButton(0);
        report("performing", framesASecond(4), "frames/s");
        picture("run");
        wait([&model] { return !model.isPlaying(); });
        report("a run of 2 + 8 seconds", since(began), "s");
        report("drawn at a scale of", stage().drawScale(), "");
    }

    void measureClockIn(int scene) {
        model::Model& model = application.model();
        const int before = stage().framesShown();
        const double began = app::stopwatchSeconds();
        double longest = 0;
        model.start();
        for (int presses = 0; model.isPlaying(); ++presses) {
            const double due = app::stopwatchSeconds() + kPressPace;
            waitFor(kPressPace);
            longest = std::max(longest, since(due));
            if (presses % 10 == 9) {
                catalogue()->pressButton(presses / 10 % 3);
                catalogue()->releaseButton(presses / 10 % 3);
            }
        }
        const double took = since(began);
        std::array<double, 1> load{};
        (void)getloadavg(load.data(), 1);
        fmt::print(
            "environment {:2}: a run of 2 + 8 s takes {:5.2f} s, {:4.1f} frames/s at a scale of "
            "{:4.2f}, a press waits {:3.0f} ms at most, load {:.1f}\n",
            scene,
            took,
            (stage().framesShown() - before) / took,
            stage().drawScale(),
            longest * 1000,
            load[0]);
        std::fflush(stdout);
        model.actionController().deleteAll();
    }

    void measurePress() {
        const int before = stage().framesShown();
        const double began = app::stopwatchSeconds();
        catalogue()->pressButton(1);
        catalogue()->releaseButton(1);
        wait([this, before] { return stage().framesShown() > before; });
        report("press to next picture", since(began) * 1000, "ms");
    }

    void run() {
        model::Model& model = application.model();
        model.start();
        for (int button = 0; button < 3; ++button) {
            waitFor(1);
            catalogue()->pressButton(button);
            catalogue()->releaseButton(button);
        }
        wait([&model] { return !model.isPlaying(); });
        model.actionController().deleteAll();
    }

    void swapScenes() {
        for (int i = 0; i < kScenes; ++i)
            swap(i);
    }

    void swap(int index) {
        application.model().setScene(index % kScenes);
        const int before = stage().framesShown();
        wait([this, before] { return stage().framesShown() > before + 3; });
    }

    /// The heap in use, and the resident memory after unused heap was given back, so that the peak
    /// of one change does not count as growth.
    void reportMemory(const std::string& moment) {
        waitFor(1.5); // work in progress finishes
        malloc_trim(0);
        fmt::print(
            "{:<20} heap {:7.1f} MiB, resident {:7.1f} MiB\n", moment, heapMiB(), residentMiB());
        std::fflush(stdout);
    }

    static double heapMiB() {
        const auto heap = mallinfo2();
        return static_cast<double>(heap.uordblks + heap.hblkhd) / (1024 * 1024);
    }

    static double residentMiB() {
        std::ifstream statm("/proc/self/statm");
        double total = 0;
        double resident = 0;
        statm >> total >> resident;
        return resident * 4096 / (1024 * 1024);
    }

    static void report(const char* what, double value, const char* unit) {
        fmt::print("{:<26}{:>9.2f} {}\n", what, value, unit);
        std::fflush(stdout);
    }

    void picture(const char* name) {
        if (!pictures.isEmpty())
            application.window()->grabWindow().save(pictures + "/" + name + ".png");
    }

    double start;
    app::Application application;
    QString pictures;
};

} // namespace

int main(int argc, char** argv) {
    zelvo::app::prepareGraphics();
    const QGuiApplication process(argc, argv);
    QStringList arguments = QGuiApplication::arguments().mid(1);
    const bool isSoak = arguments.removeAll("--soak") > 0;
    const bool isBusy = arguments.removeAll("--busy") > 0;
    Session session(arguments.value(0));
    if (isSoak) {
        session.soak();
    } else if (isBusy) {
        const BusyMachine others;
        session.measureClock();
    } else {
        session.measure();
    }
    return 0;
}
