#pragma once
// Names of the coded values of Exif 2.3 (CIPA DC-008).  Data only.

#include "text/value_names.h"

namespace qmx {

// One row per line, to be proof-read.
// clang-format off

// Exif 0x9208.  Deliberate: 14 stands twice, so its second row is never reached, and 15 is absent.
inline constexpr ValueName kLightSourceNames[] = {
    {0, L"不明"},
    {1, L"昼光"},
    {2, L"蛍光灯"},
    {3, L"白熱灯"},
    {4, L"フラッシュ"},
    {9, L"晴天"},
    {10, L"曇り"},
    {11, L"日陰"},
    {12, L"昼光蛍光灯"},
    {13, L"昼白色蛍光灯"},
    {14, L"冷白色蛍光灯"},
    {14, L"白色蛍光灯"},
    {17, L"標準ライトA"},
    {18, L"標準ライトB"},
    {19, L"標準ライトC"},
    {20, L"D55"},
    {21, L"D65"},
    {22, L"D75"},
    {23, L"D50"},
    {24, L"ISO Studio tungsten"},
    {255, L"その他"},
};

// Exif 0x9209.  Unknown codes take the prefix.
inline constexpr wchar_t kFlashPrefix[] = L"予約";
inline constexpr ValueName kFlashNames[] = {
    {0, L"なし"},
    {1, L"オン"},
    {5, L"オン,発光未検出"},
    {7, L"オン,発光検出"},
    {9, L"オン（強制）"},
    {13, L"オン（強制）,発光未検出"},
    {15, L"オン（強制）,発光検出"},
    {16, L"オフ（強制）"},
    {24, L"オフ（自動）"},
    {25, L"オン（自動）"},
    {29, L"オン（自動）,発光未検出"},
    {31, L"オン（自動）,発光検出"},
    {32, L"機能なし"},
    {65, L"オン（赤目緩和）"},
    {69, L"オン（赤目緩和）,発光未検出"},
    {71, L"オン（赤目緩和）,発光検出"},
    {73, L"オン（強制+赤目緩和）"},
    {77, L"オン（強制+赤目緩和）,発光未検出"},
    {79, L"オン（強制+赤目緩和）,発光検出"},
    {88, L"オフ（自動+赤目緩和）"},
    {89, L"オン（自動+赤目緩和）"},
    {93, L"オン（自動+赤目緩和）,発光未検出"},
    {95, L"オン（自動+赤目緩和）,発光検出"},
};

// Exif 0x8822.
inline constexpr ValueName kExposureProgramNames[] = {
    {0, L"未定義"},
    {1, L"マニュアル"},
    {2, L"ノーマルプログラム"},
    {3, L"絞り優先AE"},
    {4, L"シャッター速度優先AE"},
    {5, L"Creativeプログラム"},
    {6, L"Actionプログラム"},
    {7, L"ポートレート"},
    {8, L"ランドスケープ"},
};

// Exif 0x9207.
inline constexpr ValueName kMeteringModeNames[] = {
    {1, L"平均測光"},
    {2, L"中央重点測光"},
    {3, L"スポット測光"},
    {4, L"マルチスポット測光"},
    {5, L"分割測光"},
    {6, L"部分測光"},
};

// Exif 0xA402 to 0xA40C; the position is the code.
inline constexpr const wchar_t* kExposureModeNames[] = {
    L"オート", L"マニュアル", L"オートブラケット"};
inline constexpr const wchar_t* kWhiteBalanceNames[] = {
    L"オート", L"マニュアル"};
inline constexpr const wchar_t* kSceneCaptureTypeNames[] = {
    L"標準", L"風景", L"ポートレート", L"夜景"};
inline constexpr const wchar_t* kGainControlNames[] = {
    L"なし", L"LowGainUp", L"HighGainUp", L"LowGainDown", L"HighGainDown"};
inline constexpr const wchar_t* kContrastNames[] = {  // and sharpness
    L"標準", L"ソフト", L"ハード"};
inline constexpr const wchar_t* kSaturationNames[] = {
    L"標準", L"低い", L"高い"};
inline constexpr const wchar_t* kSubjectDistanceRangeNames[] = {
    L"不明", L"マクロ", L"近景", L"遠景"};

// clang-format on

}  // namespace qmx
