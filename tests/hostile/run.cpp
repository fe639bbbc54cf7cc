// The runner over hostile files.  The parent starts a worker that asks about one file after the
// other; a worker that crashes or hangs is followed by one that goes on behind that file.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <numeric>

#include "hostile/objects.h"
#include "hostile/options.h"
#include "hostile/usage.h"
#include "hostile/work.h"
#include "hostile/worker.h"

namespace qmx::hostile {
namespace {

#ifdef QMX_SHIM_HEAP_VIEW
constexpr bool kViewIsHeap = true;
#else
constexpr bool kViewIsHeap = false;
#endif

// A request may fill a cache of the system; a leak grows again and again.
constexpr int kConfirmations = 3;
constexpr int kTriesWhenSlow = 12;

std::size_t PageBytes(const Work& work) {
    return sizeof(Page) + static_cast<std::size_t>(work.SoundCount()) * sizeof(Answers);
}
Answers* FreshAnswers(Page& page) { return reinterpret_cast<Answers*>(&page + 1); }

// One process that asks.
class Asking {
public:
    Asking(const Options& options, Work& work, Page& page)
        : options_(options), work_(work), page_(page), fresh_(FreshAnswers(page)) {
        if (options.objects) objects_ = std::make_unique<Objects>();
        StartCountingAllocations();
    }

    void Run() {
        if (!options_.fresh) WarmUp();
        const std::uint64_t hostile = work_.HostileCount();
        const auto start = std::chrono::steady_clock::now();
        for (std::uint64_t i = options_.from; i < hostile + work_.SoundCount(); ++i) {
            const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
            if (options_.seconds > 0 && taken.count() > options_.seconds) i = std::max(i, hostile);
            page_.item = i;
            if (i < hostile)
                Check(work_.Hostile(i));
            else
                Compare(i - hostile);
        }
        page_.item = hostile + work_.SoundCount();
        if (!options_.fresh) NoteUsage(page_.heapAfter, page_.gdiAfter, page_.handlesAfter);
        if (objects_ && !objects_->AllReleased())
            page_.AddFinding("leak", "all files", "the module is still locked at the end");
    }

private:
    void Begin(const Work::Item& item) {
        std::snprintf(page_.file, sizeof page_.file, "%s", item.name.c_str());
        ++page_.steps;
    }
    Answers Ask(const wchar_t* path) {
        Answers answers = AskEverything(path);
        if (objects_) objects_->Ask(path, answers);
        return answers;
    }

    // For what the system loads and keeps when it is asked first.
    void WarmUp() {
        for (std::uint64_t i = 0; i < work_.SoundCount(); ++i) {
            if (fresh_[i].count == 0) continue;  // it was the end of the fresh process
            const Work::Item item = work_.Sound(i);
            Begin(item);
            Ask(item.path);
        }
        NoteUsage(page_.heapBefore, page_.gdiBefore, page_.handlesBefore);
    }

    void NoteUsage(std::int64_t& heap, std::int64_t& gdi, std::int64_t& handles) const {
        heap = CountHeapBytes();
        gdi = CountGdiObjects();
        handles = CountHandles();
    }

    void Check(const Work::Item& item) {
        Begin(item);
        if (item.path == nullptr)
            return page_.AddFinding("leak", item.name, "the file before is still open");
        const Held before = HeldNow();
        ResetAllocations();
        Answers answers = AskEverything(item.path);
        const Allocations memory = CurrentAllocations();
        CheckMemory(item, memory.peak);
        CheckTime(item, answers);
        ++page_.files;
        page_.answered += answers.parsed;
        page_.pictures += answers.delivered;
        if (objects_) objects_->Ask(item.path, answers);
        if (answers.broken != nullptr) page_.AddFinding("promise", item.name, answers.broken);
        if ((memory.live != 0 || HeldNow() != before) && GrowsAgain(item))
            page_.AddFinding("leak", item.name, "memory, handles or GDI objects");
        ++page_.steps;
    }

    struct Held {
        std::int64_t handles;
        std::int64_t gdiObjects;
        bool operator==(const Held&) const = default;
    };
    Held HeldNow() const { return {CountHandles(), objects_ ? CountGdiObjects() : 0}; }

    bool GrowsAgain(const Work::Item& item) {
        for (int i = 0; i < kConfirmations; ++i) {
            const Held before = HeldNow();
            ResetAllocations();
            Ask(item.path);
            const Held after = HeldNow();
            if (CurrentAllocations().live <= 0 && after.handles <= before.handles &&
                after.gdiObjects <= before.gdiObjects)
                return false;
        }
        return true;
    }

    void CheckMemory(const Work::Item& item, std::int64_t peak) {
        const auto size = static_cast<std::int64_t>(item.size);
        const std::int64_t beyond = peak - size - (kViewIsHeap ? size : 0);
        page_.hungriest.Take(static_cast<double>(beyond), item.name);
        if (beyond > options_.memoryBytes)
            page_.AddFinding("memory", item.name, std::to_string(peak) + " bytes");
    }

    using Times = std::array<float, 24>;
    static double Sum(const Times& times) {
        return std::accumulate(times.begin(), times.end(), 0.0);
    }
    static void TakeQuicker(Times& times, const Times& others) {
        for (std::size_t i = 0; i < times.size(); ++i) times[i] = std::min(times[i], others[i]);
    }

    // Of a few tries each request's quickest counts: the others were held up by something else.
    void CheckTime(const Work::Item& item, Answers answers) {
        const auto isSlow = [&] {
            return options_.slowMilliseconds > 0 &&
                   Sum(answers.milliseconds) > options_.slowMilliseconds;
        };
        const auto isSlowest = [&] {
            return Sum(answers.milliseconds) > page_.slowest.value ||
                   Sum(answers.developMilliseconds) > page_.developed.value;
        };
        for (int i = 0; isSlow() ? i < kTriesWhenSlow : isSlowest() && i < kConfirmations; ++i) {
            const Answers again = AskEverything(item.path);
            TakeQuicker(answers.milliseconds, again.milliseconds);
            TakeQuicker(answers.developMilliseconds, again.developMilliseconds);
        }
        const double taken = Sum(answers.milliseconds);
        page_.slowest.Take(taken, item.name);
        page_.developed.Take(Sum(answers.developMilliseconds), item.name);
        if (isSlow()) page_.AddFinding("slow", item.name, std::to_string(taken) + " ms");
    }

    void Compare(std::uint64_t number) {
        Answers& fresh = fresh_[number];
        if (!options_.fresh && fresh.count == 0) return;
        const Work::Item item = work_.Sound(number);
        Begin(item);
        const Answers answers = Ask(item.path);
        if (options_.fresh) fresh = answers;
        for (std::size_t i = 0; i < answers.count; ++i)
            if (answers.digests[i] != fresh.digests[i])
                page_.AddFinding("differs", item.name, NameOfRequest(i));
    }

    const Options& options_;
    Work& work_;
    Page& page_;
    Answers* fresh_;
    std::unique_ptr<Objects> objects_;
};

unsigned long long Wide(std::uint64_t number) { return number; }
long long Signed(std::int64_t number) { return number; }

// Watches over the workers.
class Watch {
public:
    Watch(const Options& options, const Work& work, char** argv, std::filesystem::path folder,
          Page& page)
        : options_(options), work_(work), argv_(argv), folder_(std::move(folder)), page_(page) {}

    void Run(bool fresh) {
        const std::uint64_t end = work_.HostileCount() + work_.SoundCount();
        for (std::uint64_t from = fresh ? work_.HostileCount() : 0; from < end;) {
            page_.item = from;
            page_.steps = 0;
            page_.fault[0] = 0;
            std::vector<std::string> more = {"--worker", folder_.string(),
                                             "--seed",   std::to_string(options_.seed),
                                             "--from",   std::to_string(from)};
            if (fresh) more.emplace_back("--fresh");
            Worker worker(argv_, more);
            const bool hung = !AwaitEnd(worker);
            if (!hung && worker.ExitCode() == 0) return;
            if (page_.steps == 0) {
                std::fputs("the worker did not start\n", stderr);
                std::exit(2);
            }
            const std::string detail = page_.fault[0] != 0
                                           ? page_.fault
                                           : "exit code " + std::to_string(worker.ExitCode());
            const bool atEnd = page_.item >= end;
            page_.AddFinding(hung ? "time-out" : "fault",
                             atEnd ? "the end of the worker" : page_.file, hung ? "" : detail);
            std::fprintf(stderr, "%s: %s\n", hung ? "time-out" : "fault", page_.file);
            if (page_.findingCount >= Page::kMaxFindings) return;
            from = page_.item + 1;
        }
    }

private:
    using Clock = std::chrono::steady_clock;

    // False when the worker stayed at one file for too long and was killed.
    bool AwaitEnd(Worker& worker) {
        constexpr double kStartSeconds = 120;
        std::uint64_t lastSteps = page_.steps;
        auto changed = Clock::now();
        auto told = changed;
        while (!worker.Wait(50)) {
            const auto now = Clock::now();
            if (page_.steps != lastSteps) {
                lastSteps = page_.steps;
                changed = now;
            }
            const std::chrono::duration<double> still = now - changed;
            if (still.count() > (lastSteps == 0 ? kStartSeconds : options_.timeLimitSeconds)) {
                worker.Kill();
                return false;
            }
            if (now - told > std::chrono::seconds(30)) {
                told = now;
                std::fprintf(stderr, "%llu of %llu\n", Wide(page_.item),
                             Wide(work_.HostileCount()));
            }
        }
        return true;
    }

    const Options& options_;
    const Work& work_;
    char** argv_;
    std::filesystem::path folder_;
    Page& page_;
};

int Report(const Options& options, const Work& work, const Page& page) {
    if (options.mutants != 0)
        std::printf("seeds %llu to %llu\n", Wide(options.seed),
                    Wide(options.seed + options.mutants - 1));
    std::printf("%llu files, %llu with metadata, %llu with a picture; %llu sound ones compared\n",
                Wide(page.files), Wide(page.answered), Wide(page.pictures),
                Wide(work.SoundCount()));
    std::printf("slowest, ms for all requests, developments apart: %.2f  %s\n", page.slowest.value,
                page.slowest.file);
    std::printf("slowest development, ms for all of a file: %.2f  %s\n", page.developed.value,
                page.developed.file);
    std::printf("most private memory, KiB beyond the file's size: %.2f  %s\n",
                page.hungriest.value / 1024, page.hungriest.file);
    std::printf(
        "before and after: heap %lld %lld bytes, handles %lld %lld, GDI objects %lld %lld\n",
        Signed(page.heapBefore), Signed(page.heapAfter), Signed(page.handlesBefore),
        Signed(page.handlesAfter), Signed(page.gdiBefore), Signed(page.gdiAfter));
    for (std::uint64_t i = 0; i < std::min<std::uint64_t>(page.findingCount, Page::kMaxFindings);
         ++i)
        std::printf("%s: %s: %s\n", page.findings[i].kind, page.findings[i].file,
                    page.findings[i].detail);
    std::printf("%llu findings\n", Wide(page.findingCount));
    const bool complete = options.seconds > 0 || page.files == work.HostileCount();
    return page.findingCount == 0 && page.files != 0 && complete ? 0 : 1;
}

int RunParent(const Options& options, char** argv) {
    const TemporaryFolder folder;
    const Work work(options, folder.path);
    const SharedMemory memory(folder.path / "page", PageBytes(work), true);
    Page& page = *static_cast<Page*>(memory.Get());
    Watch watch(options, work, argv, folder.path, page);
    watch.Run(true);
    watch.Run(false);
    return Report(options, work, page);
}

int RunWorker(const Options& options) {
    Work work(options, options.worker);
    const SharedMemory memory(options.worker / "page", PageBytes(work), false);
    Page& page = *static_cast<Page*>(memory.Get());
    NoteCrashes(page);
    LoadLibraryUnderTest();
    Asking(options, work, page).Run();
    return 0;
}

}  // namespace
}  // namespace qmx::hostile

int main(int argc, char** argv) {
    const auto options = qmx::hostile::ReadOptions(argc, argv);
    if (!options) return 2;
    return options->worker.empty() ? qmx::hostile::RunParent(*options, argv)
                                   : qmx::hostile::RunWorker(*options);
}
