#include "apps/fatiar/spool.h"

#include <poll.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "apps/common/tool.h"
#include "apps/fatiar/interrupt.h"

Spool::Spool() {
    std::string name = (std::filesystem::temp_directory_path() / "fatiar-XXXXXX").string();
    descriptor_ = mkstemp(name.data());
    Expect(descriptor_ >= 0, "a pasta temporaria nao aceita arquivos");
    unlink(name.c_str());
}

Spool::~Spool() { close(descriptor_); }

std::string Spool::Path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

// Waits for bytes, or for a signal: one that comes just before a read would not wake it.
static ssize_t Read(int from, char* block, size_t size) {
    constexpr int Milliseconds = 50;
    for (pollfd input{from, POLLIN, 0}; poll(&input, 1, Milliseconds) <= 0;) ThrowWhenInterrupted();
    return read(from, block, size);
}

// From one descriptor to the other until its end.
static bool Copy(int from, int to) {
    static char block[1 << 16];
    ssize_t got;
    while ((got = Read(from, block, sizeof block)) > 0)
        for (ssize_t put, done = 0; done < got; done += put) {
            ThrowWhenInterrupted();
            if ((put = write(to, block + done, static_cast<size_t>(got - done))) < 0) return false;
        }
    ThrowWhenInterrupted();
    return got == 0;
}

void Spool::FillFromStandardInput() {
    Expect(!isatty(STDIN_FILENO), "a entrada padrao e um terminal: mande para ela o audio de outro programa");
    Expect(Copy(STDIN_FILENO, descriptor_), "a entrada padrao nao pode ser lida, ou nao cabe na pasta temporaria");
}

void Spool::CopyToStandardOutput() {
    Expect(lseek(descriptor_, 0, SEEK_SET) == 0 && Copy(descriptor_, STDOUT_FILENO),
           "a saida padrao nao aceita o audio");
}
