#include "session.h"

#include <new>
#include <optional>

#include "paths.h"
#include "photo.h"
#include "preview_files.h"
#include "print_html.h"
#include "print_json.h"
#include "print_text.h"
#include "progress.h"
#include "utf8.h"
#include "walk.h"

namespace qmx {
namespace {

bool PrintsText(const Options& options) {
    return !options.quiet && !options.json && !options.orient && options.htmlOut.empty();
}

bool Prints(const Options& options) {
    return PrintsText(options) || options.json || options.orient;
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
    void HandleFile(const FoundFile& file);
    void Show(const FoundFile& file, const Photo& photo);
    void WritePreviews(const FoundFile& file, const Photo& photo);
    void WritePreview(std::optional<PreviewTarget>& target, const FoundFile& file,
                      const Preview& preview);
    void RefuseFile(const std::wstring& path, const std::wstring& reason);
    void Complain(const std::wstring& subject, const std::wstring& words);
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
    bool writingFailed = false;
};

int Session::Run() {
    found = FindFiles(library, options.inputs, progress);
    if (!OpenTargets()) return kNothingDone;
    for (const Unreadable& failure : found.failures) RefuseFile(failure.path, failure.reason);
    for (std::size_t i = 0; i < found.files.size() && !out.HasFailed(); ++i) {
        progress.ShowDone(i, found.files.size());
        HandleFile(found.files[i]);
    }
    progress.Clear();
    return Finish();
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

void Session::HandleFile(const FoundFile& file) {
    const Photo photo = ReadPhoto(library, file.path, ChooseParts(options));
    if (!photo.error.empty()) {
        RefuseFile(photo.path, photo.error);
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
    if (options.json) {
        Photo photo;
        photo.path = path;
        photo.error = reason;
        PrintJson(out, photo);
    }
    Complain(path, reason);
    unreadable.push_back({path, reason});
}

void Session::Complain(const std::wstring& subject, const std::wstring& words) {
    progress.Clear();
    out.Flush();  // keeps the order when both go to one terminal or file
    err.Put("qmxshow: ").Put(OneLine(subject)).Put(": ").Put(OneLine(words)).Put("\n").Flush();
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
    const std::size_t total = shown + unreadable.size();
    if (total == 0) {
        Complain(options.inputs.front(), L"no photo found");
        return kNothingDone;
    }
    if (!unreadable.empty() && total > 1) {
        Complain(std::to_wstring(unreadable.size()) + L" of " + std::to_wstring(total),
                 L"could not be read");
    }
    return unreadable.empty() && !writingFailed ? kAllFine : kSomeFailed;
}

}  // namespace

int RunSession(const Options& options, const Library& library, Writer& out, Writer& err) {
    return Session(options, library, out, err).Run();
}

}  // namespace qmx
