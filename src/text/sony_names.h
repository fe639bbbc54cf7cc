#pragma once
// Names of the coded values of Sony's tags; codes are those of the public tag lists.  Data only.

#include "text/value_names.h"

namespace qmx {

// One row per line, to be proof-read.
// clang-format off

inline constexpr ValueName kSonyOffOnNames[] = {
    {0, L"オフ"},
    {1, L"オン"},
};

inline constexpr PrefixName kSonyCreativeStyleNames[] = {
    {"Standard", L"スタンダード"},
    {"Vivid", L"ビビッド"},
    {"Portrait", L"ポートレート"},
    {"Landscape", L"風景"},
    {"Sunset", L"夕景"},
    {"Nightview", L"夜景"},
    {"Night view/portrait", L"夜景・夜景ポートレート"},
    {"BW", L"白黒"},
    {"AdobeRGB", L"Adobe RGB"},
    {"Neutral", L"ニュートラル"},
    {"Clear", L"クリア"},
    {"Deep", L"ディープ"},
    {"Light", L"ライト"},
    {"Autumnleaves", L"紅葉"},
    {"Autumn", L"紅葉"},
    {"Sepia", L"セピア"},
    {"Real", L"リアル"},
    {"None", L"なし"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kSonyFileFormatNames[] = {
    {"0 0 0 2", L"JPEG"},
    {"1 0 0 0", L"SR2"},
    {"2 0 0 0", L"ARW 1.0"},
    {"3 0 0 0", L"ARW 2.0"},
    {"3 1 0 0", L"ARW 2.1"},
    {"3 2 0 0", L"ARW 2.2"},
    {"3 3 0 0", L"ARW 2.3"},
    {"3 3 1 0", L"ARW 2.3.1"},
    {"3 3 2 0", L"ARW 2.3.2"},
    {"3 3 3 0", L"ARW 2.3.3"},
    {"3 3 5 0", L"ARW 2.3.5"},
    {"4 0 0 0", L"ARW 4.0"},
    {"4 0 1 0", L"ARW 4.0.1"},
    {"5 0 0 0", L"ARW 5.0"},
    {"5 0 1 0", L"ARW 5.0.1"},
    {"6 0 0 0", L"ARW 6.0"},
    {nullptr, nullptr},
};

inline constexpr ValueName kSonyQualityNames[] = {
    {0, L"RAW"},
    {1, L"スーパーファイン"},
    {2, L"ファイン"},
    {3, L"スタンダード"},
    {4, L"エコノミー"},
    {5, L"エクストラファイン"},
    {6, L"RAW+JPEG"},
    {7, L"圧縮RAW"},
    {8, L"圧縮RAW+JPEG"},
    {9, L"ライト"},
};

inline constexpr ValueName kSonyLongExposureNrNames[] = {
    {0, L"オフ"},
    {1, L"オン（未使用）"},
    {65537, L"オン"},
};

inline constexpr ValueName kSonyHighIsoNrNames[] = {
    {0, L"オフ"},
    {1, L"弱"},
    {2, L"標準"},
    {3, L"強"},
    {256, L"オート"},
};

inline constexpr ValueName kSonyHighIsoNr2Names[] = {
    {0, L"標準"},
    {1, L"強"},
    {2, L"弱"},
    {3, L"オフ"},
};

inline constexpr ValueName kSonyHdrNames[] = {
    {0, L"オフ"},
    {1, L"オート"},
    {16, L"1.0EV"},
    {17, L"1.5EV"},
    {18, L"2.0EV"},
    {19, L"2.5EV"},
    {20, L"3.0EV"},
    {21, L"3.5EV"},
    {22, L"4.0EV"},
    {23, L"4.5EV"},
    {24, L"5.0EV"},
    {25, L"5.5EV"},
    {26, L"6.0EV"},
};

inline constexpr ValueName kSonyHdrImageNames[] = {
    {0, L"補正前"},
    {1, L"HDR画像"},
    {2, L"HDR失敗1"},
    {3, L"HDR失敗2"},
};

inline constexpr ValueName kSonySoftSkinNames[] = {
    {0, L"オフ"},
    {1, L"弱"},
    {2, L"中"},
    {3, L"強"},
};

inline constexpr ValueName kSonyLensCorrectionNames[] = {
    {0, L"オフ"},
    {2, L"オート"},
};

inline constexpr ValueName kSonyFlashActionNames[] = {
    {0, L"発光せず"},
    {1, L"発光"},
    {2, L"外部フラッシュ発光"},
    {3, L"ワイヤレスフラッシュ発光"},
};

inline constexpr ValueName kSonyFocusMode2Names[] = {
    {0, L"マニュアルフォーカス"},
    {2, L"シングルAF"},
    {3, L"コンティニュアスAF"},
    {4, L"AF自動切替"},
    {6, L"DMF"},
    {7, L"AF-D"},
};

inline constexpr ValueName kSonyAfAreaMode2SltNames[] = {
    {0, L"ワイド"},
    {4, L"ローカル"},
    {8, L"ゾーン"},
    {9, L"スポット"},
};

inline constexpr ValueName kSonyAfAreaMode2IlcaNames[] = {
    {0, L"ワイド"},
    {4, L"フレキシブルスポット"},
    {8, L"ゾーン"},
    {9, L"中央"},
    {12, L"拡張フレキシブルスポット"},
};

inline constexpr ValueName kSonyAfAreaMode2EMountNames[] = {
    {0, L"ワイド"},
    {1, L"中央"},
    {3, L"フレキシブルスポット"},
    {4, L"フレキシブルスポット（LA-EA4）"},
    {9, L"中央（LA-EA4）"},
    {11, L"ゾーン"},
    {12, L"拡張フレキシブルスポット"},
    {13, L"カスタム"},
};

inline constexpr ValueName kSonyAfTrackingNames[] = {
    {0, L"オフ"},
    {1, L"顔追尾"},
    {2, L"ロックオンAF"},
};

inline constexpr ValueName kSonyRawFileTypeNames[] = {
    {0, L"圧縮RAW"},
    {1, L"非圧縮RAW"},
    {2, L"ロスレス圧縮RAW"},
    {3, L"圧縮RAW（HQ）"},
};

inline constexpr ValueName kSonyAwbPriorityNames[] = {
    {0, L"標準"},
    {1, L"雰囲気優先"},
    {2, L"ホワイト優先"},
};

inline constexpr ValueName kSonyMetering2Names[] = {
    {256, L"マルチ測光"},
    {512, L"中央重点測光"},
    {769, L"スポット測光（標準）"},
    {770, L"スポット測光（大）"},
    {1024, L"画面全体平均測光"},
    {1280, L"ハイライト重点測光"},
};

inline constexpr ValueName kSonyQuality2Names[] = {
    {1, L"スタンダード"},
    {2, L"ファイン"},
    {3, L"エクストラファイン"},
    {4, L"ライト"},
    {256, L"RAW"},
    {257, L"RAW+スタンダード"},
    {258, L"RAW+ファイン"},
    {259, L"RAW+エクストラファイン"},
    {260, L"RAW+ライト"},
};

inline constexpr ValueName kSonyDroNames[] = {
    {0, L"オフ"},
    {1, L"スタンダード"},
    {2, L"アドバンスオート"},
    {3, L"オート"},
    {8, L"アドバンスLv1"},
    {9, L"アドバンスLv2"},
    {10, L"アドバンスLv3"},
    {11, L"アドバンスLv4"},
    {12, L"アドバンスLv5"},
    {16, L"Lv1"},
    {17, L"Lv2"},
    {18, L"Lv3"},
    {19, L"Lv4"},
    {20, L"Lv5"},
};

inline constexpr ValueName kSonyDro2Names[] = {
    {0, L"オフ"},
    {1, L"スタンダード"},
    {2, L"プラス"},
};

inline constexpr ValueName kSonyColorModeNames[] = {
    {0, L"スタンダード"},
    {1, L"ビビッド"},
    {2, L"ポートレート"},
    {3, L"風景"},
    {4, L"夕景"},
    {5, L"夜景・夜景ポートレート"},
    {6, L"白黒"},
    {7, L"Adobe RGB"},
    {12, L"ニュートラル"},
    {13, L"クリア"},
    {14, L"ディープ"},
    {15, L"ライト"},
    {16, L"紅葉"},
    {17, L"セピア"},
    {18, L"FL"},
    {19, L"VV2"},
    {20, L"IN"},
    {21, L"SH"},
    {100, L"ニュートラル"},
    {101, L"クリア"},
    {102, L"ディープ"},
    {103, L"ライト"},
    {104, L"夜景"},
    {105, L"紅葉"},
    {255, L"オフ"},
};

inline constexpr ValueName kSonySceneModeNames[] = {
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
    {18, L"スイングパノラマ"},
    {19, L"手持ち夜景"},
    {20, L"人物ブレ軽減"},
    {21, L"連続撮影優先AE"},
    {22, L"オートアドバンス"},
    {23, L"3Dスイングパノラマ"},
    {24, L"プレミアムおまかせオート"},
    {25, L"高感度"},
    {26, L"打ち上げ花火"},
    {27, L"料理"},
    {28, L"ペット"},
    {33, L"HDR"},
};

inline constexpr ValueName kSonyMacroNames[] = {
    {0, L"オフ"},
    {1, L"オン"},
    {2, L"拡大鏡"},
};

inline constexpr ValueName kSonyExposureModeNames[] = {
    {0, L"プログラムオート"},
    {1, L"ポートレート"},
    {2, L"ビーチ"},
    {3, L"スポーツ"},
    {4, L"スノー"},
    {5, L"風景"},
    {6, L"オート"},
    {7, L"絞り優先"},
    {8, L"シャッター速度優先"},
    {9, L"夜景"},
    {10, L"高速シャッター"},
    {11, L"夜景&人物"},
    {12, L"ソフトスナップ"},
    {13, L"打ち上げ花火"},
    {14, L"スマイルシャッター"},
    {15, L"マニュアル露出"},
    {18, L"高感度"},
    {19, L"マクロ"},
    {20, L"アドバンススポーツ"},
    {29, L"水中"},
    {33, L"料理"},
    {34, L"スイングパノラマ"},
    {35, L"手持ち夜景"},
    {36, L"人物ブレ軽減"},
    {37, L"ペット"},
    {38, L"逆光補正HDR"},
    {39, L"プレミアムおまかせオート"},
    {40, L"背景ぼかし"},
    {41, L"美肌"},
    {42, L"3D静止画"},
};

inline constexpr ValueName kSonyFocusModeNames[] = {
    {1, L"シングルAF"},
    {2, L"モニタリングAF"},
    {4, L"常時AF"},
};

inline constexpr ValueName kSonyAfAreaModeNames[] = {
    {0, L"標準"},
    {1, L"マルチAF"},
    {2, L"中央重点AF"},
    {3, L"スポットAF"},
    {4, L"フレキシブルスポットAF"},
    {6, L"タッチAF"},
    {14, L"追尾AF"},
    {15, L"顔検出AF"},
};

inline constexpr ValueName kSonyAfIlluminatorNames[] = {
    {0, L"オフ"},
    {1, L"オート"},
};

inline constexpr ValueName kSonyJpegQualityNames[] = {
    {0, L"スタンダード"},
    {1, L"ファイン"},
    {2, L"エクストラファイン"},
};

inline constexpr ValueName kSonyFlashLevelNames[] = {
    {-32768, L"弱"},
    {-9, L"-3EV"},
    {-8, L"-2.7EV"},
    {-7, L"-2.3EV"},
    {-6, L"-2EV"},
    {-5, L"-1.7EV"},
    {-4, L"-1.3EV"},
    {-3, L"-1EV"},
    {-2, L"-0.7EV"},
    {-1, L"-0.3EV"},
    {0, L"標準"},
    {1, L"+0.3EV"},
    {2, L"+0.7EV"},
    {3, L"+1EV"},
    {4, L"+1.3EV"},
    {5, L"+1.7EV"},
    {6, L"+2EV"},
    {7, L"+2.3EV"},
    {8, L"+2.7EV"},
    {9, L"+3EV"},
    {32767, L"強"},
};

inline constexpr ValueName kSonyReleaseModeNames[] = {
    {0, L"1枚撮影"},
    {2, L"連続撮影"},
    {5, L"露出ブラケット"},
    {6, L"WBブラケット"},
    {8, L"DROブラケット"},
};

inline constexpr ValueName kSonyAntiBlurNames[] = {
    {0, L"オフ"},
    {1, L"オン（常時）"},
    {2, L"オン（撮影時）"},
};

inline constexpr ValueName kSonyIntelligentAutoNames[] = {
    {0, L"オフ"},
    {1, L"オン"},
    {2, L"アドバンス"},
};

inline constexpr ValueName kSonyPictureEffectNames[] = {
    {0, L"オフ"},
    {1, L"トイカメラ"},
    {2, L"ポップカラー"},
    {3, L"ポスタリゼーション"},
    {4, L"ポスタリゼーション（白黒）"},
    {5, L"レトロフォト"},
    {6, L"ソフトハイキー"},
    {7, L"パートカラー（赤）"},
    {8, L"パートカラー（緑）"},
    {9, L"パートカラー（青）"},
    {10, L"パートカラー（黄）"},
    {13, L"ハイコントラストモノクロ"},
    {16, L"トイカメラ（ノーマル）"},
    {17, L"トイカメラ（クール）"},
    {18, L"トイカメラ（ウォーム）"},
    {19, L"トイカメラ（グリーン）"},
    {20, L"トイカメラ（マゼンタ）"},
    {32, L"ソフトフォーカス（弱）"},
    {33, L"ソフトフォーカス"},
    {34, L"ソフトフォーカス（強）"},
    {48, L"ミニチュア（オート）"},
    {49, L"ミニチュア（上）"},
    {50, L"ミニチュア（中央・横）"},
    {51, L"ミニチュア（下）"},
    {52, L"ミニチュア（左）"},
    {53, L"ミニチュア（中央・縦）"},
    {54, L"ミニチュア（右）"},
    {64, L"絵画調HDR（弱）"},
    {65, L"絵画調HDR"},
    {66, L"絵画調HDR（強）"},
    {80, L"リッチトーンモノクロ"},
    {97, L"水彩画調"},
    {98, L"水彩画調2"},
    {112, L"イラスト調（弱）"},
    {113, L"イラスト調"},
    {114, L"イラスト調（強）"},
};

// Both white-balance tags, whose codes do not clash.
inline constexpr ValueName kSonyWhiteBalanceNames[] = {
    {0, L"オート"},
    {1, L"色温度・カラーフィルター"},
    {4, L"カスタム"},
    {5, L"太陽光"},
    {6, L"曇天"},
    {7, L"蛍光灯（白色）"},
    {8, L"蛍光灯（昼白色）"},
    {9, L"蛍光灯（昼光色）"},
    {10, L"電球2"},
    {11, L"蛍光灯（温白色）"},
    {14, L"電球"},
    {15, L"フラッシュ"},
    {16, L"太陽光"},
    {17, L"水中1"},
    {18, L"水中2"},
    {19, L"水中オート"},
    {32, L"曇天"},
    {48, L"日陰"},
    {64, L"電球"},
    {80, L"フラッシュ"},
    {96, L"蛍光灯"},
    {112, L"カスタム"},
    {128, L"水中オート"},
};

inline constexpr ValueName kSonyAutoPortraitFramedNames[] = {
    {0, L"いいえ"},
    {1, L"はい"},
};

// clang-format on

}  // namespace qmx
