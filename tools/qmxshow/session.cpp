#include "session.h"

#include <algorithm>
#include <new>
#include <optional>
#include <utility>

#include "interrupt.h"
#include "paths.h"
#include "photo.h"
#include "preview_files.h"
#include "print_csv.h"
#include "print_html.h"
#include "print_json.h"
#include "print_text.h"
#include "progress.h"
#include "reader.h"
#include "utf8.h"
#include "walk.h"

namespace qmx {
namespace {

bool PrintsText(const Options& options) {
    return !options.quiet && !options.json && !options.csv && !options.orient &&
           options.htmlOut.empty();
}

bool Prints(const Options& options) {
    return PrintsText(options) || options.json || options.csv || options.orient;
}

PhotoParts ChooseParts(const Options& options) {
    const bool all = PrintsText(options) || options.json || !options.htmlOut.empty();
    return {all, all || !options.thumbOut.empty()};
}

class Session {
public:
    Session(const Options& chosen, const Library& lib, Writer& output, Writer& errors)
        : options(chosen),
          library(lib),
          out(output),
          err(errors),
          progress(!(Prints(chosen) && output.IsConsole())) {}

    int Run();

private:
    bool OpenTargets();
    unsigned Jobs() const;
    void SortFiles();
    void HandleFile(const FoundFile& file, const Photo& photo);
    void Show(const FoundFile& file, const Photo& photo);
    void WritePreviews(const FoundFile& file, const Photo& photo);
    void WritePreview(std::optional<PreviewTarget>& target, const FoundFile& file,
                      const Preview& preview);
    void RefuseFile(const std::wstring& path, const std::wstring& reason);
    void Complain(const std::wstring& subject, const std::wstring& words);
    void Summarise();
    int Finish();

    const Options& options;
    const Library& library;
    Writer& out;
    Writer& err;
    Progress progress;
    FoundFiles found;
    std::optional<PhotoGuard> guard;
    std::optional<PreviewTarget> thumbs;
    std::optional<PreviewTarget> primaries;
    std::optional<HtmlSheet> sheet;
    std::vector<Unreadable> unreadable;
    std::size_t shown = 0;
    std::size_t leftOut = 0;  // by the filters
    std::size_t notRead = 0;  // Ctrl+C came first
    ULONGLONG startTick = GetTickCount64();
    bool writingFailed = false;
};

int Session::Run() {
    found = FindFiles(library, options.inputs, progress);
    if (!OpenTargets()) return kNothingDone;
    if (options.sortKey != SortKey::kNone) SortFiles();
    if (options.csv) PrintCsvHeading(out);
    for (const Unreadable& failure : found.failures) RefuseFile(failure.path, failure.reason);
    PhotoReader reader(library, found.files, ChooseParts(options), Jobs());
    for (std::size_t i = 0; i < found.files.size() && !out.HasFailed(); ++i) {
        if (WasInterrupted()) {
            notRead = found.files.size() - i;
            break;
        }
        progress.ShowDone(i, found.files.size());
        HandleFile(found.files[i], reader.Next());
    }
    progress.Clear();
    return Finish();
}

unsigned Session::Jobs() const { return options.jobCount ? options.jobCount : DefaultJobs(); }

// Reads the records alone first: all photos with their previews would not fit into memory.
void Session::SortFiles() {
    using Sortable = std::pair<SortValue, FoundFile>;
    std::vector<Sortable> order;
    PhotoReader reader(library, found.files, {false, false}, Jobs());
    for (const FoundFile& file : found.files) {
        if (WasInterrupted()) return;  // nothing will be shown
        progress.ShowDone(order.size(), found.files.size());
        order.emplace_back(SortValueOf(reader.Next(), file.name, options.sortKey), file);
    }
    std::stable_sort(order.begin(), order.end(), [](const Sortable& left, const Sortable& right) {
        return ComesBefore(left.first, right.first);
    });
    std::transform(order.begin(), order.end(), found.files.begin(),
                   [](Sortable& row) { return std::move(row.second); });
}

bool Session::OpenTargets() {
    guard.emplace(found.files);
    const bool several = found.hadFolder || found.files.size() > 1;
    if (!options.thumbOut.empty()) thumbs.emplace(options.thumbOut, several, *guard);
    if (!options.primaryOut.empty()) primaries.emplace(options.primaryOut, several, *guard);
    if (options.htmlOut.empty()) return true;
    // Previews have names of their own making; here a slip on the command line names any file.
    if (guard->IsPhoto(options.htmlOut) || library.isExifFile(options.htmlOut.c_str())) {
        Complain(options.htmlOut, L"not written, since that would replace a photo");
        return false;
    }
    sheet.emplace(options.htmlOut);
    if (sheet->LastError() != ERROR_SUCCESS) {
        Complain(L"cannot write " + options.htmlOut, ErrorText(sheet->LastError()));
        return false;
    }
    sheet->Begin();
    return true;
}

void Session::HandleFile(const FoundFile& file, const Photo& photo) {
    if (!photo.error.empty()) {
        RefuseFile(photo.path, photo.error);
        return;
    }
    if (!options.filter.Matches(photo)) {
        ++leftOut;
        return;
    }
    Show(file, photo);
    WritePreviews(file, photo);
    if (out.IsConsole()) out.Flush();
    ++shown;
}

void Session::Show(const FoundFile& file, const Photo& photo) {
    const bool several = found.hadFolder || options.inputs.size() > 1 || found.files.size() > 1;
    if (sheet) sheet->Add(photo, file.name);
    if (options.json) {
        PrintJson(out, photo);
    } else if (options.csv) {
        PrintCsv(out, photo);
    } else if (options.orient) {
        if (several) out.Put(OneLine(photo.path)).Put(": ");
        PrintOrientation(out, photo);
    } else if (PrintsText(options)) {
        if (shown != 0) out.Put("\n");
        if (several) PrintHeading(out, photo.path);
        PrintText(out, photo);
    }
}

void Session::WritePreviews(const FoundFile& file, const Photo& photo) {
    if (thumbs) WritePreview(thumbs, file, photo.preview);
    if (!primaries) return;
    try {
        WritePreview(primaries, file, ReadPrimary(library, file.path));
    } catch (const std::bad_alloc&) {
        Complain(file.path, L"not enough memory for the largest preview");
        writingFailed = true;
    }
}

void Session::WritePreview(std::optional<PreviewTarget>& target, const FoundFile& file,
                           const Preview& preview) {
    std::wstring written, error;
    if (target->Write(file, preview, written, error)) {
        if (PrintsText(options)) out.Put("Written: ").Put(OneLine(written)).Put("\n");
        return;
    }
    Complain(file.path, error);
    writingFailed = true;
}

void Session::RefuseFile(const std::wstring& path, const std::wstring& reason) {
    if (options.json || options.csv) {
        Photo photo;
        photo.path = path;
        photo.error = reason;
        options.json ? PrintJson(out, photo) : PrintCsv(out, photo);
    }
    Complain(path, reason);
    unreadable.push_back({path, reason});
}

void Session::Complain(const std::wstring& subject, const std::wstring& words) {
    progress.Clear();
    out.Flush();  // keeps the order when both go to one terminal or file
    err.Put("qmxshow: ").Put(OneLine(subject)).Put(": ").Put(OneLine(words)).Put("\n").Flush();
}

// "12 files, 1 failed, 0.4 s" on standard error, for more than one file.
void Session::Summarise() {
    const std::size_t total = shown + leftOut + unreadable.size();
    if (total + notRead < 2 || (options.quiet && unreadable.empty() && notRead == 0)) return;
    const ULONGLONG tenths = (GetTickCount64() - startTick + 50) / 100;
    std::wstring words = std::to_wstring(total) + L" files, ";
    if (leftOut != 0) words += std::to_wstring(shown) + L" shown, ";
    words += std::to_wstring(unreadable.size()) + L" failed, ";
    if (notRead != 0) words += std::to_wstring(notRead) + L" not read, ";
    words += std::to_wstring(tenths / 10) + L"." + std::to_wstring(tenths % 10) + L" s";
    Complain(notRead != 0 ? L"interrupted" : L"done", words);
}

int Session::Finish() {
    if (sheet) sheet->Finish(unreadable);
    out.Flush();
    if (sheet && sheet->LastError() != ERROR_SUCCESS) {
        Complain(L"cannot write " + options.htmlOut, ErrorText(sheet->LastError()));
        return kNothingDone;
    }
    if (out.HasFailed()) {
        // A reader that has seen enough ("| more", then q) is no error worth a message.
        const DWORD error = out.LastError();
        const bool readerLeft = error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA ||
                                error == ERROR_PIPE_NOT_CONNECTED;
        if (!readerLeft) Complain(L"cannot write the output", ErrorText(error));
        return kNothingDone;
    }
    if (shown + leftOut + unreadable.size() + notRead == 0) {
        Complain(options.inputs.front(), L"no photo found");
        return kNothingDone;
    }
    Summarise();
    return unreadable.empty() && notRead == 0 && !writingFailed ? kAllFine : kSomeFailed;
}

}  // namespace

int RunSession(const Options& options, const Library& library, Writer& out, Writer& err) {
    return Session(options, library, out, err).Run();
}

}  // namespace qmx
