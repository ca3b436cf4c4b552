#include "apps/fatiar/interrupt.h"

#include <csignal>
#include <initializer_list>

static volatile std::sig_atomic_t caught = 0;

static void Catch(int signal) { caught = signal; }

void CatchInterrupts() {
    struct sigaction action {};
    action.sa_handler = Catch;
    // A read that waits is woken. A second signal, as wrappers send it, does not cut the tidying short.
    action.sa_flags = 0;
    for (int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
    std::signal(SIGPIPE, SIG_IGN);  // a reader that goes away is a write that fails
}

int InterruptedBy() { return caught; }

void ThrowWhenInterrupted() {
    if (caught) throw Interrupted{};
}
