#include "apps/fatiar/interrupt.h"

#include <csignal>
#include <initializer_list>

static volatile std::sig_atomic_t caught = 0;

static void Catch(int signal) {
    caught = signal;
}

void CatchInterrupts() {
    struct sigaction action {};
    action.sa_handler = Catch;
    action.sa_flags = SA_RESETHAND;  // a second one ends the program at once; a read that waits is woken
    for (int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &action, nullptr);
    std::signal(SIGPIPE, SIG_IGN);  // a reader that goes away is a write that fails
}

int InterruptedBy() {
    return caught;
}

void ThrowWhenInterrupted() {
    if (caught) throw Interrupted{};
}
