#pragma once
// Names of the coded values of Minolta's notes; codes are those of the public tag lists.  Data
// only.

#include "text/value_names.h"

namespace qmx {

// One row per line, to be proof-read.
// clang-format off

inline constexpr ValueName kMinoltaOffOnNames[] = {
    {0, L"オフ"},
    {1, L"オン"},
};

inline constexpr ValueName kMinoltaExposureModeNames[] = {
    {0, L"プログラム"},
    {1, L"絞り優先"},
    {2, L"シャッター速度優先"},
    {3, L"マニュアル"},
    {4, L"オート"},
    {5, L"プログラムシフトA"},
    {6, L"プログラムシフトS"},
    {4115, L"ポートレート"},
    {4131, L"スポーツ"},
    {4147, L"夕景"},
    {4163, L"夜景・夜景ポートレート"},
    {4179, L"風景"},
    {4227, L"マクロ"},
};

inline constexpr ValueName kMinoltaFlashModeNames[] = {
    {0, L"強制発光"},
    {1, L"赤目緩和"},
    {2, L"後幕シンクロ"},
    {3, L"ワイヤレス"},
    {4, L"発光禁止"},
};

inline constexpr ValueName kMinoltaFlashMode7DNames[] = {
    {0, L"標準"},
    {1, L"赤目緩和"},
    {2, L"後幕シンクロ"},
};

inline constexpr ValueName kMinoltaImageSizeNames[] = {
    {0, L"フル"},
    {1, L"1600 x 1200"},
    {2, L"1280 x 960"},
    {3, L"640 x 480"},
    {6, L"2080 x 1560"},
    {7, L"2560 x 1920"},
    {8, L"3264 x 2176"},
};

inline constexpr ValueName kMinoltaImageSizeTagNames[] = {
    {1, L"1600 x 1200"},
    {2, L"1280 x 960"},
    {3, L"640 x 480"},
    {5, L"2560 x 1920"},
    {6, L"2272 x 1704"},
    {7, L"2048 x 1536"},
};

inline constexpr ValueName kMinoltaImageSize7DNames[] = {
    {0, L"L"},
    {1, L"M"},
    {2, L"S"},
};

inline constexpr ValueName kMinoltaQualityNames[] = {
    {0, L"RAW"},
    {1, L"スーパーファイン"},
    {2, L"ファイン"},
    {3, L"スタンダード"},
    {4, L"エコノミー"},
    {5, L"エクストラファイン"},
};

inline constexpr ValueName kMinoltaQuality7DNames[] = {
    {0, L"RAW"},
    {16, L"エクストラファイン"},
    {32, L"ファイン"},
    {34, L"RAW+JPEG"},
    {48, L"スタンダード"},
};

inline constexpr ValueName kMinoltaDriveModeNames[] = {
    {0, L"1コマ撮影"},
    {1, L"連続撮影"},
    {2, L"セルフタイマー"},
    {4, L"ブラケット"},
    {5, L"インターバル"},
    {6, L"UHS連続撮影"},
    {7, L"HS連続撮影"},
};

inline constexpr ValueName kMinoltaDriveModeA100Names[] = {
    {0, L"10秒セルフタイマー"},
    {1, L"連続撮影"},
    {4, L"2秒セルフタイマー"},
    {5, L"1コマ撮影"},
    {8, L"WBブラケット（弱）"},
    {9, L"WBブラケット（強）"},
    {770, L"1コマブラケット（弱）"},
    {1794, L"1コマブラケット（強）"},
    {771, L"連続ブラケット（弱）"},
    {1795, L"連続ブラケット（強）"},
};

inline constexpr ValueName kMinoltaMeteringNames[] = {
    {0, L"多分割測光"},
    {1, L"中央重点測光"},
    {2, L"スポット測光"},
};

inline constexpr ValueName kMinoltaStabilizer2Names[] = {
    {1, L"オフ"},
    {5, L"オン"},
};

inline constexpr ValueName kMinoltaDigitalZoomNames[] = {
    {0, L"オフ"},
    {1, L"電子拡大"},
    {2, L"2倍"},
};

inline constexpr ValueName kMinoltaBracketStepNames[] = {
    {0, L"1/3EV"},
    {1, L"2/3EV"},
    {2, L"1EV"},
};

inline constexpr ValueName kMinoltaFlashFiredNames[] = {
    {0, L"発光せず"},
    {1, L"発光"},
};

inline constexpr ValueName kMinoltaInternalFlashNames[] = {
    {0, L"発光せず"},
    {1, L"発光"},
};

inline constexpr ValueName kMinoltaSharpnessNames[] = {
    {0, L"ハード"},
    {1, L"標準"},
    {2, L"ソフト"},
};

inline constexpr ValueName kMinoltaSubjectProgramNames[] = {
    {0, L"なし"},
    {1, L"ポートレート"},
    {2, L"文字"},
    {3, L"夜景ポートレート"},
    {4, L"夕景"},
    {5, L"スポーツ"},
};

inline constexpr ValueName kMinoltaIsoSettingNames[] = {
    {0, L"100"},
    {1, L"200"},
    {2, L"400"},
    {3, L"800"},
    {4, L"オート"},
    {5, L"64"},
};

inline constexpr ValueName kMinoltaIsoSetting7DNames[] = {
    {0, L"オート"},
    {1, L"100"},
    {3, L"200"},
    {4, L"400"},
    {5, L"800"},
    {6, L"1600"},
    {7, L"3200"},
    {8, L"200（ハイキー）"},
    {10, L"80（ローキー）"},
};

inline constexpr ValueName kMinoltaColorModeNames[] = {
    {0, L"ナチュラルカラー"},
    {1, L"白黒"},
    {2, L"ビビッドカラー"},
    {3, L"ソラリゼーション"},
    {4, L"Adobe RGB"},
    {5, L"セピア"},
    {9, L"ナチュラル"},
    {12, L"ポートレート"},
    {13, L"ナチュラル（sRGB）"},
    {14, L"ナチュラルプラス（sRGB）"},
    {15, L"風景"},
    {16, L"夕景"},
    {17, L"夜景"},
    {18, L"夜景ポートレート"},
    {132, L"Adobe RGB（埋込）"},
};

inline constexpr ValueName kMinoltaColorSpace7DNames[] = {
    {0, L"ナチュラル（sRGB）"},
    {1, L"ナチュラルプラス（sRGB）"},
    {4, L"Adobe RGB"},
};

inline constexpr ValueName kMinoltaColorSpace5DNames[] = {
    {0, L"ナチュラル（sRGB）"},
    {1, L"ナチュラルプラス（sRGB）"},
    {2, L"モノクロ"},
    {4, L"Adobe RGB（ICC）"},
    {5, L"Adobe RGB"},
};

inline constexpr ValueName kMinoltaPictureFinishNames[] = {
    {0, L"ナチュラル"},
    {1, L"ナチュラルプラス"},
    {2, L"ポートレート"},
    {3, L"風景"},
    {4, L"夕景"},
    {5, L"夜景"},
    {6, L"夜景ポートレート"},
    {7, L"モノクロ"},
    {8, L"Adobe RGB"},
    {9, L"Adobe RGB（ICC）"},
};

inline constexpr ValueName kMinoltaFocusZoneNames[] = {
    {0, L"なし"},
    {1, L"中央（横位置）"},
    {2, L"中央（縦位置）"},
    {3, L"左"},
    {4, L"右"},
};

inline constexpr ValueName kMinoltaFocusModeNames[] = {
    {0, L"オートフォーカス"},
    {1, L"マニュアルフォーカス"},
};

inline constexpr ValueName kMinoltaFocusMode7DNames[] = {
    {0, L"シングルAF"},
    {1, L"コンティニュアスAF"},
    {3, L"マニュアルフォーカス"},
    {4, L"AF自動切替"},
};

inline constexpr ValueName kMinoltaFocusModeA100Names[] = {
    {0, L"シングルAF"},
    {1, L"コンティニュアスAF"},
    {4, L"AF自動切替"},
    {5, L"マニュアルフォーカス"},
    {6, L"DMF"},
};

inline constexpr ValueName kMinoltaAfPoints7DNames[] = {
    {1, L"中央"},
    {2, L"上"},
    {4, L"右上"},
    {8, L"右"},
    {16, L"右下"},
    {32, L"下"},
    {64, L"左下"},
    {128, L"左"},
    {256, L"左上"},
};

inline constexpr ValueName kMinoltaFocusAreaNames[] = {
    {0, L"ワイド"},
    {1, L"スポット"},
};

inline constexpr ValueName kMinoltaColorProfileNames[] = {
    {0, L"なし"},
    {1, L"埋込"},
};

inline constexpr ValueName kMinoltaDataImprintNames[] = {
    {0, L"なし"},
    {1, L"年/月/日"},
    {2, L"月/日/時:分"},
    {3, L"文字"},
    {4, L"文字+番号"},
};

inline constexpr ValueName kMinoltaFlashMeteringNames[] = {
    {0, L"ADI調光"},
    {1, L"P-TTL調光"},
    {2, L"マニュアル"},
};

inline constexpr ValueName kMinoltaSceneModeNames[] = {
    {0, L"標準"},
    {1, L"ポートレート"},
    {2, L"文字"},
    {3, L"夜景"},
    {4, L"夕景"},
    {5, L"スポーツ"},
    {6, L"風景"},
    {7, L"夜景ポートレート"},
    {8, L"マクロ"},
    {9, L"スーパーマクロ"},
    {16, L"オート"},
    {17, L"夜景・夜景ポートレート"},
};

inline constexpr ValueName kMinoltaTeleconverterNames[] = {
    {0, L"なし"},
    {4, L"AF 1.4x APO (D)"},
    {5, L"AF 2x APO (D)"},
    {72, L"AF 2x APO (D)"},
    {80, L"AF 2x APO II"},
    {96, L"AF 2x APO"},
    {136, L"AF 1.4x APO (D)"},
    {144, L"AF 1.4x APO II"},
    {160, L"AF 1.4x APO"},
};

inline constexpr ValueName kMinoltaZoneMatchingNames[] = {
    {0, L"オフ"},
    {1, L"ハイキー"},
    {2, L"ローキー"},
};

// White balance of the 7D family.
inline constexpr ValueName kMinoltaWhiteBalance7DNames[] = {
    {0, L"オート"},
    {1, L"太陽光"},
    {2, L"日陰"},
    {3, L"曇り"},
    {4, L"白熱灯"},
    {5, L"蛍光灯"},
    {6, L"フラッシュ"},
    {256, L"色温度指定"},
    {512, L"カスタム"},
    {513, L"カスタム2"},
    {514, L"カスタム3"},
};

// White balance of all others: the settings of the older compacts, tag 0x0115, and the form of
// the A1 and A2 with its fine tuning taken out.
inline constexpr ValueName kMinoltaWhiteBalanceNames[] = {
    {0, L"オート"},
    {1, L"太陽光"},
    {2, L"曇り"},
    {3, L"白熱灯"},
    {5, L"カスタム"},
    {7, L"蛍光灯"},
    {8, L"蛍光灯2"},
    {11, L"カスタム2"},
    {12, L"カスタム3"},
    {16, L"太陽光"},
    {32, L"曇り"},
    {48, L"日陰"},
    {64, L"白熱灯"},
    {80, L"フラッシュ"},
    {96, L"蛍光灯"},
    {112, L"カスタム"},
    {256, L"色温度指定"},
    {512, L"カスタム"},
    {8388608, L"オート"},
    {25165824, L"太陽光"},
    {41943040, L"曇り"},
    {58720256, L"白熱灯"},
    {75497472, L"フラッシュ"},
    {92274688, L"蛍光灯"},
    {109051904, L"日陰"},
    {125829120, L"カスタム1"},
    {142606336, L"カスタム2"},
    {159383552, L"カスタム3"},
};

// clang-format on

}  // namespace qmx
