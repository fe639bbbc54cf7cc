#pragma once
// The files that one run asks about, by number: those named, their truncations or their mutants,
// and then the sound ones once more.

#include <memory>
#include <string>
#include <vector>

#include "hostile/corpus.h"
#include "hostile/mutator.h"
#include "hostile/options.h"

namespace qmx::hostile {

class Work {
public:
    // Files in memory are put into `folder` where the library needs them there.
    Work(const Options& options, const std::filesystem::path& folder);

    std::uint64_t HostileCount() const { return hostileCount_; }
    std::uint64_t SoundCount() const { return sound_.size(); }

    struct Item {
        std::string name;
        const wchar_t* path;  // null: it cannot be written; valid until the next call
        std::uint64_t size;
    };
    Item Hostile(std::uint64_t number);
    Item Sound(std::uint64_t number);

private:
    // A file on disk, or one that the tests build.
    struct Source {
        std::string name;
        WideText path;   // empty: in memory
        SoundFile file;  // without bytes when they are not needed
        std::uint64_t size;
    };
    // Which file a mutant is made of.
    const Source& MutatedBy(std::uint64_t seed) const;
    Item Whole(const Source& source);
    Item Written(std::string name, const Source& source, const Bytes& bytes);

    const Options& options_;
    Scratch scratch_;
    std::vector<Source> sound_;
    std::vector<const Source*> chosen_;       // what is hostile, truncated or mutated
    std::vector<std::uint64_t> firstOfFile_;  // number of each file's first truncation
    std::ptrdiff_t parsedEnd_ = 0;            // of the chosen, those before are not developed
    std::uint64_t hostileCount_ = 0;
};

}  // namespace qmx::hostile
