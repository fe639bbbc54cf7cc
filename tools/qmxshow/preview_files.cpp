#include "preview_files.h"

#include <utility>

#include "paths.h"

namespace qmx {
namespace {

std::wstring FoldPath(const std::wstring& path) { return LowerCase(FullPath(path)); }

const wchar_t* ExtensionFor(PreviewKind kind) {
    switch (kind) {
        case PreviewKind::kJpeg: return L".jpg";
        case PreviewKind::kBmp: return L".bmp";
        default: return L"";
    }
}

bool HasMatchingExtension(const std::wstring& path, PreviewKind kind) {
    const std::wstring extension = LowerExtension(path);
    if (kind == PreviewKind::kJpeg) {
        return extension == L".jpg" || extension == L".jpeg" || extension == L".jpe";
    }
    return kind != PreviewKind::kBmp || extension == L".bmp" || extension == L".dib";
}

}  // namespace

PhotoGuard::PhotoGuard(const std::vector<FoundFile>& files) {
    for (const FoundFile& file : files) photos.insert(FoldPath(file.path));
}

bool PhotoGuard::IsPhoto(const std::wstring& path) const {
    return photos.count(FoldPath(path)) != 0;
}

PreviewTarget::PreviewTarget(std::wstring place, bool isFolder, const PhotoGuard& photoGuard)
    : out(std::move(place)),
      outIsFolder(isFolder || EndsWithSeparator(out) || IsFolder(out)),
      guard(photoGuard) {}

std::wstring PreviewTarget::ChoosePath(const FoundFile& file, const Preview& preview) {
    const std::wstring extension = ExtensionFor(preview.kind);
    if (!outIsFolder) return HasMatchingExtension(out, preview.kind) ? out : out + extension;
    const std::wstring stem = JoinPath(out, file.name);
    std::wstring path = stem + extension;
    for (int copy = 2; !used.insert(FoldPath(path)).second; ++copy) {
        path = stem + L" (" + std::to_wstring(copy) + L")" + extension;
    }
    return path;
}

bool PreviewTarget::Write(const FoundFile& file, const Preview& preview, std::wstring& written,
                          std::wstring& error) {
    if (preview.kind == PreviewKind::kNone) {
        error = L"no preview found";
        return false;
    }
    written = ChoosePath(file, preview);
    // By path against all photos, and by identity (links, short names) against this one.
    if (guard.IsPhoto(written) || IsSameFile(written, file.path)) {
        error = L"not written, since that would replace a photo: " + written;
        return false;
    }
    DWORD code = ERROR_SUCCESS;
    if (outIsFolder) code = CreateFolders(std::wstring(FolderOf(written)));
    if (code == ERROR_SUCCESS) {
        const auto* bytes = reinterpret_cast<const char*>(preview.bytes.data());
        code = WriteWholeFile(written, {bytes, preview.bytes.size()});
    }
    if (code != ERROR_SUCCESS) error = L"cannot write " + written + L": " + ErrorText(code);
    return code == ERROR_SUCCESS;
}

}  // namespace qmx
