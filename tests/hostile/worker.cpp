#include "hostile/worker.h"

#include <cstdio>
#include <cstdlib>

#ifndef _WIN32
#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <ctime>
#endif

namespace qmx::hostile {
namespace {

template <std::size_t Size>
void CopyName(char (&to)[Size], const std::string& from) {
    std::snprintf(to, Size, "%s", from.c_str());
}

[[noreturn]] void Stop(const char* what) {
    std::fprintf(stderr, "%s\n", what);
    std::exit(2);
}

}  // namespace

void Page::AddFinding(const char* kind, const std::string& name, const std::string& detail) {
    if (findingCount < kMaxFindings) {
        Finding& finding = findings[findingCount];
        CopyName(finding.kind, kind);
        CopyName(finding.file, name);
        CopyName(finding.detail, detail);
    }
    ++findingCount;
}

void Most::Take(double other, const std::string& name) {
    if (other <= value) return;
    value = other;
    CopyName(file, name);
}

#ifdef _WIN32

SharedMemory::SharedMemory(const std::filesystem::path& path, std::size_t size, bool make)
    : size_(size) {
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, make ? CREATE_ALWAYS : OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    const HANDLE mapping =
        CreateFileMappingW(file, nullptr, PAGE_READWRITE, 0, static_cast<DWORD>(size), nullptr);
    memory_ = mapping != nullptr ? MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, size) : nullptr;
    if (mapping != nullptr) CloseHandle(mapping);
    if (file != INVALID_HANDLE_VALUE) CloseHandle(file);
    if (memory_ == nullptr) Stop("cannot share memory in the temporary folder");
}

SharedMemory::~SharedMemory() { UnmapViewOfFile(memory_); }

Worker::Worker(char**, const std::vector<std::string>& more) {
    std::wstring line = GetCommandLineW();
    for (const std::string& argument : more)
        line += L" \"" +
                std::filesystem::path(std::u8string(argument.begin(), argument.end())).wstring() +
                L"\"";
    wchar_t program[2048];
    GetModuleFileNameW(nullptr, program, 2048);
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started = {};
    if (!CreateProcessW(program, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &started))
        Stop("cannot start a worker");
    CloseHandle(started.hThread);
    process_ = reinterpret_cast<std::intptr_t>(started.hProcess);
}

Worker::~Worker() {
    Kill();
    CloseHandle(reinterpret_cast<HANDLE>(process_));
}

bool Worker::Wait(int milliseconds) {
    const auto process = reinterpret_cast<HANDLE>(process_);
    if (WaitForSingleObject(process, static_cast<DWORD>(milliseconds)) != WAIT_OBJECT_0)
        return false;
    DWORD code = 0;
    GetExitCodeProcess(process, &code);
    exitCode_ = static_cast<int>(code);
    ended_ = true;
    return true;
}

void Worker::Kill() {
    if (ended_) return;
    TerminateProcess(reinterpret_cast<HANDLE>(process_), 9);
    Wait(10000);
}

namespace {

Page* crashPage = nullptr;

LONG WINAPI NoteCrash(EXCEPTION_POINTERS* pointers) {
    const EXCEPTION_RECORD& record = *pointers->ExceptionRecord;
    HMODULE module = nullptr;
    char name[MAX_PATH] = "?";
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        static_cast<const wchar_t*>(record.ExceptionAddress), &module);
    if (module != nullptr) GetModuleFileNameA(module, name, MAX_PATH);
    const auto offset = reinterpret_cast<std::uintptr_t>(record.ExceptionAddress) -
                        reinterpret_cast<std::uintptr_t>(module);
    std::snprintf(crashPage->fault, sizeof crashPage->fault, "exception %08x at %.100s+0x%llx",
                  static_cast<unsigned>(record.ExceptionCode), name,
                  static_cast<unsigned long long>(offset));
    return EXCEPTION_EXECUTE_HANDLER;
}

}  // namespace

void NoteCrashes(Page& page) {
    crashPage = &page;
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
    SetUnhandledExceptionFilter(NoteCrash);
}

#else

SharedMemory::SharedMemory(const std::filesystem::path& path, std::size_t size, bool make)
    : size_(size) {
    const int file = open(path.c_str(), O_RDWR | O_CLOEXEC | (make ? O_CREAT | O_TRUNC : 0), 0600);
    const bool sized = file >= 0 && (!make || ftruncate(file, static_cast<off_t>(size)) == 0);
    memory_ = sized ? mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED, file, 0) : MAP_FAILED;
    if (memory_ == MAP_FAILED) Stop("cannot share memory in the temporary folder");
    close(file);
}

SharedMemory::~SharedMemory() { munmap(memory_, size_); }

Worker::Worker(char** argv, const std::vector<std::string>& more) {
    std::vector<char*> arguments;
    for (; *argv != nullptr; ++argv) arguments.push_back(*argv);
    for (const std::string& argument : more)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    pid_t pid = 0;
    if (posix_spawn(&pid, "/proc/self/exe", nullptr, nullptr, arguments.data(), environ) != 0)
        Stop("cannot start a worker");
    process_ = pid;
}

Worker::~Worker() { Kill(); }

bool Worker::Wait(int milliseconds) {
    constexpr int kStep = 5;
    for (int waited = 0;; waited += kStep) {
        int status = 0;
        if (waitpid(static_cast<pid_t>(process_), &status, WNOHANG) != 0) {
            exitCode_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
            ended_ = true;
            return true;
        }
        if (waited >= milliseconds) return false;
        const timespec pause = {0, kStep * 1000000};
        nanosleep(&pause, nullptr);
    }
}

void Worker::Kill() {
    if (ended_) return;
    kill(static_cast<pid_t>(process_), SIGKILL);
    Wait(10000);
}

// The sanitizers print what they find, and the parent tells which file it was.
void NoteCrashes(Page&) {}

#endif

}  // namespace qmx::hostile
