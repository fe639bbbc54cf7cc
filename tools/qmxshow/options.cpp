#include "options.h"

#include <cstdint>

#include "paths.h"

namespace qmx {
namespace {

struct Switch {
    std::wstring_view name;
    bool Options::*flag;
};

struct Setting {
    std::wstring_view name;
    std::wstring Options::*value;
};

constexpr Switch kSwitches[] = {
    {L"--json", &Options::json},       {L"--csv", &Options::csv}, {L"--orient", &Options::orient},
    {L"--quiet", &Options::quiet},     {L"-q", &Options::quiet},  {L"--help", &Options::help},
    {L"-h", &Options::help},           {L"-?", &Options::help},   {L"/?", &Options::help},
    {L"--version", &Options::version},
};

constexpr Setting kSettings[] = {
    {L"--thumb", &Options::thumbOut}, {L"--primary", &Options::primaryOut},
    {L"--html", &Options::htmlOut},   {L"--sort", &Options::sort},
    {L"--maker", &Options::maker},    {L"--since", &Options::since},
    {L"--until", &Options::until},    {L"--jobs", &Options::jobs},
    {L"--dll", &Options::dllPath},
};

bool SetSwitch(std::wstring_view argument, Options& options) {
    for (const Switch& row : kSwitches) {
        if (argument != row.name) continue;
        options.*row.flag = true;
        return true;
    }
    return false;
}

const Setting* FindSetting(std::wstring_view name) {
    for (const Setting& row : kSettings) {
        if (name == row.name) return &row;
    }
    return nullptr;
}

// Handles "--name value" and "--name=value"; `at` steps over a value of its own.
bool SetOption(int count, wchar_t** arguments, int& at, Options& options, std::wstring& error) {
    const std::wstring_view argument = arguments[at];
    if (SetSwitch(argument, options)) return true;
    const std::size_t equals = argument.find(L'=');
    const std::wstring name(argument.substr(0, equals));
    const Setting* setting = FindSetting(name);
    if (!setting) {
        error = L"unknown option " + std::wstring(argument);
        return false;
    }
    std::wstring& value = options.*setting->value;
    if (equals != std::wstring_view::npos) {
        value = argument.substr(equals + 1);
    } else if (at + 1 < count) {
        value = arguments[++at];
    } else {
        value.clear();
    }
    if (value.empty()) error = name + L" needs a value";
    return !value.empty();
}

bool CheckTogether(const Options& options, std::wstring& error) {
    if (options.help || options.version) return true;
    if (options.inputs.empty()) {
        error = L"no file given";
    } else if (options.json + options.csv + options.orient > 1) {
        error = L"--json, --csv and --orient exclude each other (the others hold the orientation)";
    } else if (options.quiet && (options.json || options.csv || options.orient)) {
        error = L"--quiet leaves nothing to print for --json, --csv or --orient";
    }
    return error.empty();
}

constexpr unsigned kMaxJobs = 64;

bool ParseJobs(std::wstring_view text, unsigned& jobs) {
    jobs = 0;
    for (const wchar_t c : text) {
        if (c < L'0' || c > L'9' || jobs > kMaxJobs) return false;
        jobs = jobs * 10 + static_cast<unsigned>(c - L'0');
    }
    return jobs >= 1 && jobs <= kMaxJobs;
}

// From the values' texts to what they mean.
bool ReadValues(Options& options, std::wstring& error) {
    std::uint64_t unused = 0;
    if (!options.sort.empty() && !ParseSortKey(options.sort, options.sortKey)) {
        error = L"--sort takes name, date, maker, model, iso or focal, not " + options.sort;
    } else if (!options.since.empty() && !ParseDate(options.since, options.filter.since, unused)) {
        error = L"--since takes YYYY, YYYY-MM or YYYY-MM-DD, not " + options.since;
    } else if (!options.until.empty() && !ParseDate(options.until, unused, options.filter.until)) {
        error = L"--until takes YYYY, YYYY-MM or YYYY-MM-DD, not " + options.until;
    } else if (!options.jobs.empty() && !ParseJobs(options.jobs, options.jobCount)) {
        error = L"--jobs takes a number from 1 to " + std::to_wstring(kMaxJobs);
    }
    options.filter.maker = LowerCase(options.maker);
    return error.empty();
}

}  // namespace

bool ParseOptions(int count, wchar_t** arguments, Options& options, std::wstring& error) {
    bool onlyInputs = false;
    for (int at = 1; at < count; ++at) {
        const std::wstring_view argument = arguments[at];
        if (!onlyInputs && argument == L"--") {
            onlyInputs = true;
        } else if (!onlyInputs &&
                   ((argument.size() > 1 && argument[0] == L'-') || argument == L"/?")) {
            if (!SetOption(count, arguments, at, options, error)) return false;
        } else if (!argument.empty()) {
            options.inputs.emplace_back(argument);
        }
    }
    return CheckTogether(options, error) && ReadValues(options, error);
}

std::string_view HelpText() {
    return R"(qmxshow - shows what qmxexif reads from camera files

Usage: qmxshow [options] FILE|FOLDER...

Prints for each file the one-line summary, the description, the list of all values
and the size of the small preview, in UTF-8.  FILE may hold * and ?.  A FOLDER is
searched with all its subfolders (links are not followed) in the order of names; taken
are files with the extension of a camera format and all others that hold photo metadata.

  --json           print one JSON object per file and line: "path", "ok", and with
                   "ok": true the record's fields by name, "list" and "preview", else
                   "error".  null = the file does not say.  "shortText" and "longText"
                   are exactly as the library gives them.
  --csv            print a table with one row per file, as spreadsheets read it
  --orient         print only the orientation, as number and in words
  --quiet, -q      print no text (for use with the options that write files)

  --thumb OUT      write the small preview of each file to OUT
  --primary OUT    write the largest preview of each file to OUT
                   With one FILE, OUT is a file; .jpg or .bmp is appended unless OUT ends
                   so already.  With several files, or when OUT is a folder or ends in a
                   backslash, OUT is a folder (made when missing): photo.nef becomes
                   OUT\photo.nef.jpg, and subfolders are kept.  Older files are replaced,
                   the given photos never.
  --html OUT       write a contact sheet, one HTML file with the small previews inside;
                   prints no text unless --json or --orient is given

  --maker TEXT     show only photos whose maker's name holds TEXT, in any case
  --since DATE     show only photos taken on DATE (YYYY, YYYY-MM or YYYY-MM-DD) or later
  --until DATE     ... or earlier; photos without a date are left out by either
  --sort KEY       order by name, date, maker, model, iso or focal; what does not say
                   comes last, and equal ones stay in the order of their paths
  --jobs N         read N files at a time (as a rule as many as there are processors);
                   the order of what is printed does not change

  --dll PATH       use this qmxexif.dll instead of the one beside this program
  --help, -h       print this text
  --version        print the version
  --               what follows are files, even if it begins with "-"

Examples:
  qmxshow DSC_0001.NEF
  qmxshow --csv --sort date D:\Photos > photos.csv
  qmxshow --html sheet.html --maker canon --since 2013-10 --until 2013 D:\Photos
  qmxshow --quiet --primary previews\ *.NEF

Several files end with a summary on standard error.  Ctrl+C ends after the file at hand:
what is read so far is printed whole; the second Ctrl+C ends at once.

Exit status: 0 all went well; 1 some file could not be read, or a preview not be written,
or Ctrl+C ended it early; 2 wrong usage, or nothing could be done (no library, no photo found,
output not writable).
)";
}

std::string_view VersionText() { return "qmxshow 1.0.0\n"; }

}  // namespace qmx
