#pragma once
// Names of the coded values of Sony's block of settings (tag 0x0114), by its forms: "Set1" serves
// the two forms of words, "Set3" the one of bytes, unless they differ.  Data only.

#include "text/value_names.h"

namespace qmx {

// One row per line, to be proof-read.
// clang-format off

inline constexpr ValueName kSonyDriveModeSet1Names[] = {
    {1, L"1枚撮影"},
    {2, L"連続撮影Hi"},
    {18, L"連続撮影Lo"},
    {4, L"10秒セルフタイマー"},
    {5, L"2秒セルフタイマー"},
    {6, L"1枚ブラケット"},
    {7, L"連続ブラケット"},
    {10, L"リモコン"},
    {11, L"ミラーアップ"},
    {24, L"WBブラケットLo"},
    {40, L"WBブラケットHi"},
    {25, L"DROブラケットLo"},
    {41, L"DROブラケットHi"},
};

inline constexpr ValueName kSonyDriveModeSet3Names[] = {
    {16, L"1枚撮影"},
    {33, L"連続撮影Hi"},
    {34, L"連続撮影Lo"},
    {48, L"速度優先連続撮影"},
    {81, L"10秒セルフタイマー"},
    {82, L"2秒セルフタイマー"},
    {113, L"連続ブラケット0.3EV"},
    {117, L"連続ブラケット0.7EV"},
    {145, L"WBブラケットLo"},
    {146, L"WBブラケットHi"},
    {192, L"リモコン"},
    {209, L"オートHDR"},
    {210, L"マルチショットNR"},
    {211, L"手持ち夜景"},
    {212, L"人物ブレ軽減"},
    {213, L"スイングパノラマ"},
    {214, L"3Dスイングパノラマ"},
};

inline constexpr ValueName kSonyWbSettingSet1Names[] = {
    {2, L"オート"},
    {4, L"太陽光"},
    {5, L"蛍光灯"},
    {6, L"電球"},
    {7, L"フラッシュ"},
    {16, L"曇天"},
    {17, L"日陰"},
    {18, L"色温度・カラーフィルター"},
    {32, L"カスタム1"},
    {33, L"カスタム2"},
    {34, L"カスタム3"},
};

inline constexpr ValueName kSonyFocusModeSettingSet1Names[] = {
    {0, L"マニュアルフォーカス"},
    {1, L"シングルAF"},
    {2, L"コンティニュアスAF"},
    {3, L"AF自動切替"},
    {4, L"DMF"},
};

inline constexpr ValueName kSonyFocusModeSettingSet3Names[] = {
    {17, L"シングルAF"},
    {18, L"コンティニュアスAF"},
    {19, L"AF自動切替"},
    {32, L"マニュアルフォーカス"},
    {48, L"DMF"},
};

inline constexpr ValueName kSonyAfAreaSet1Names[] = {
    {0, L"ワイド"},
    {1, L"ローカル"},
    {2, L"スポット"},
};

inline constexpr ValueName kSonyAfAreaSet3Names[] = {
    {1, L"ワイド"},
    {2, L"スポット"},
    {3, L"ローカル"},
    {4, L"フレキシブルスポット"},
};

inline constexpr ValueName kSonyAfPointSet1Names[] = {
    {1, L"中央"},
    {2, L"上"},
    {3, L"右上"},
    {4, L"右"},
    {5, L"右下"},
    {6, L"下"},
    {7, L"左下"},
    {8, L"左"},
    {9, L"左上"},
    {10, L"右端"},
    {11, L"左端"},
};

inline constexpr ValueName kSonyFlashModeSettingSet1Names[] = {
    {0, L"オート"},
    {2, L"後幕シンクロ"},
    {3, L"ワイヤレス"},
    {4, L"強制発光"},
    {5, L"発光禁止"},
    {6, L"スローシンクロ"},
};

inline constexpr ValueName kSonyFlashModeSettingSet3Names[] = {
    {1, L"発光禁止"},
    {16, L"オート"},
    {17, L"強制発光"},
    {18, L"スローシンクロ"},
    {19, L"後幕シンクロ"},
    {20, L"ワイヤレス"},
};

inline constexpr ValueName kSonyMeteringSet1Names[] = {
    {1, L"多分割測光"},
    {2, L"中央重点測光"},
    {4, L"スポット測光"},
};

inline constexpr ValueName kSonyMeteringSet3Names[] = {
    {1, L"多分割測光"},
    {2, L"中央重点測光"},
    {3, L"スポット測光"},
};

inline constexpr ValueName kSonyDroModeSet1Names[] = {
    {0, L"オフ"},
    {1, L"スタンダード"},
    {2, L"アドバンスオート"},
    {3, L"アドバンスレベル"},
};

inline constexpr ValueName kSonyStyleSet1Names[] = {
    {1, L"スタンダード"},
    {2, L"ビビッド"},
    {3, L"ポートレート"},
    {4, L"風景"},
    {5, L"夕景"},
    {6, L"夜景・夜景ポートレート"},
    {8, L"白黒"},
    {9, L"Adobe RGB"},
    {11, L"ニュートラル"},
    {12, L"クリア"},
    {13, L"ディープ"},
    {14, L"ライト"},
    {15, L"紅葉"},
    {16, L"セピア"},
};

inline constexpr ValueName kSonyProgramSet1Names[] = {
    {0, L"オート"},
    {1, L"マニュアル"},
    {2, L"プログラムオート"},
    {3, L"絞り優先"},
    {4, L"シャッター速度優先"},
    {8, L"プログラムシフトA"},
    {9, L"プログラムシフトS"},
    {16, L"ポートレート"},
    {17, L"スポーツ"},
    {18, L"夕景"},
    {19, L"夜景ポートレート"},
    {20, L"風景"},
    {21, L"マクロ"},
    {35, L"オート（発光禁止）"},
};

inline constexpr ValueName kSonyQualitySettingSet1Names[] = {
    {0, L"RAW"},
    {2, L"圧縮RAW"},
    {16, L"エクストラファイン"},
    {32, L"ファイン"},
    {34, L"RAW+JPEG"},
    {35, L"圧縮RAW+JPEG"},
    {48, L"スタンダード"},
};

inline constexpr ValueName kSonyQualitySettingSet3Names[] = {
    {2, L"RAW"},
    {4, L"RAW+JPEG"},
    {6, L"ファイン"},
    {7, L"スタンダード"},
};

inline constexpr ValueName kSonyImageSizeSettingSet1Names[] = {
    {1, L"L"},
    {2, L"M"},
    {3, L"S"},
};

inline constexpr ValueName kSonyImageSizeSettingSet3Names[] = {
    {21, L"L（3:2）"},
    {22, L"M（3:2）"},
    {23, L"S（3:2）"},
    {25, L"L（16:9）"},
    {26, L"M（16:9）"},
    {27, L"S（16:9）"},
};

inline constexpr ValueName kSonyAspectSet1Names[] = {
    {1, L"3:2"},
    {2, L"16:9"},
};

inline constexpr ValueName kSonyAspectSet3Names[] = {
    {4, L"3:2"},
    {8, L"16:9"},
};

inline constexpr ValueName kSonyFlashControlSet1Names[] = {
    {0, L"ADI調光"},
    {1, L"P-TTL調光"},
    {2, L"マニュアル"},
};

inline constexpr ValueName kSonyFlashControlSet3Names[] = {
    {1, L"ADI調光"},
    {2, L"P-TTL調光"},
};

inline constexpr ValueName kSonyStyleSettingNames[] = {
    {16, L"スタンダード"},
    {32, L"ビビッド"},
    {64, L"ポートレート"},
    {80, L"風景"},
    {96, L"白黒"},
    {160, L"夕景"},
};

inline constexpr ValueName kSonyDroSettingNames[] = {
    {1, L"オフ"},
    {16, L"オート"},
    {17, L"マニュアル"},
};

inline constexpr ValueName kSonyHighNrSet1Names[] = {
    {0, L"標準"},
    {1, L"弱"},
    {2, L"強"},
    {3, L"オフ"},
};

inline constexpr ValueName kSonyHighNrSet2Names[] = {
    {0, L"オフ"},
    {1, L"弱"},
    {2, L"標準"},
    {3, L"強"},
};

inline constexpr ValueName kSonyHighNrSet3Names[] = {
    {16, L"弱"},
    {17, L"強"},
    {19, L"オート"},
};

inline constexpr ValueName kSonyLongNrSet1Names[] = {
    {0, L"オフ"},
    {1, L"オン"},
};

inline constexpr ValueName kSonyLongNrSet3Names[] = {
    {1, L"オフ"},
    {16, L"オン"},
};

// clang-format on

}  // namespace qmx
