// The words of the window; those about photos come from the library.
#pragma once

namespace browser {

inline constexpr wchar_t kTitle[] = L"写真ブラウザー";
inline constexpr wchar_t kLabelColumn[] = L"項目";
inline constexpr wchar_t kValueColumn[] = L"内容";
inline constexpr wchar_t kNoMetadata[] = L"撮影情報を読み取れません。";
inline constexpr wchar_t kWaitingPicture[] = L"…";
inline constexpr wchar_t kNoPicture[] = L"画像なし";
inline constexpr wchar_t kReadingFolder[] = L"読み込み中…";
inline constexpr wchar_t kFolderUnreadable[] = L"フォルダーを開けません: ";
inline constexpr wchar_t kPhotoCount[] = L" 枚の写真";

}  // namespace browser
