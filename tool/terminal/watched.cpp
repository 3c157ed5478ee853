#include "terminal/watched.h"

#include <optional>

#include "terminal/interrupt.h"
#include "terminal/progress.h"

bool watched(bool with_progress, const std::function<void(RunProgress& progress)>& work) {
    RunProgress progress;
    const InterruptScope interrupt(progress.stop);
    std::optional<ProgressDisplay> display;
    if (with_progress) {
        display.emplace(progress, stderr);
    }
    try {
        work(progress);
        return true;
    } catch (const RunStopped&) {
        return false;
    }
}
