#pragma once
// Names of the coded values of Olympus' notes; codes are those of the public tag lists.  Data only.

#include "text/value_names.h"

namespace qmx {

// One row per line, to be proof-read.
// clang-format off

// Main directory.
inline constexpr ValueName kOlympusSpecialModeNames[] = {
    {0, L"標準"},
    {1, L"不明"},
    {2, L"連続撮影"},
    {3, L"パノラマ"},
};

inline constexpr ValueName kOlympusPanoramaDirectionNames[] = {
    {0, L"なし"},
    {1, L"左→右"},
    {2, L"右→左"},
    {3, L"下→上"},
    {4, L"上→下"},
};

inline constexpr ValueName kOlympusQualityNames[] = {
    {1, L"SQ"},
    {2, L"HQ"},
    {3, L"SHQ"},
    {4, L"RAW"},
    {5, L"ミドルファイン"},
    {6, L"スモールファイン"},
    {33, L"非圧縮"},
};

// Types whose code name begins with SX, and the D4322.
inline constexpr ValueName kOlympusSxQualityNames[] = {
    {0, L"SQ"},
    {1, L"HQ"},
    {2, L"SHQ"},
    {6, L"RAW"},
};

inline constexpr ValueName kOlympusMacroNames[] = {
    {0, L"オフ"},
    {1, L"オン"},
    {2, L"スーパーマクロ"},
};

inline constexpr ValueName kOlympusBlackAndWhiteNames[] = {
    {0, L"オフ"},
    {1, L"オン"},
    {6, L"なし"},
};

inline constexpr ValueName kOlympusOneTouchBalanceNames[] = {
    {0, L"オフ"},
    {1, L"オン"},
    {2, L"オン（プリセット）"},
};

inline constexpr ValueName kOlympusCompactSceneNames[] = {
    {0, L"ノーマル"},
    {1, L"標準"},
    {2, L"オート"},
    {3, L"iオート"},
    {4, L"ポートレート"},
    {5, L"風景+人物"},
    {6, L"風景"},
    {7, L"夜景"},
    {8, L"夜景+人物"},
    {9, L"スポーツ"},
    {10, L"自分撮り"},
    {11, L"屋内撮影"},
    {12, L"ビーチ&スノー"},
    {13, L"ビーチ"},
    {14, L"スノー"},
    {15, L"自分撮り+セルフタイマー"},
    {16, L"夕日"},
    {17, L"料理"},
    {18, L"文書"},
    {19, L"キャンドル"},
    {20, L"打ち上げ花火"},
    {21, L"自然光"},
    {22, L"ビビッド"},
    {23, L"水中ワイド1"},
    {24, L"水中マクロ"},
    {25, L"ミュージアム"},
    {26, L"ガラス越し"},
    {27, L"オークション"},
    {28, L"ショット&セレクト1"},
    {29, L"ショット&セレクト2"},
    {30, L"水中ワイド2"},
    {31, L"デジタル手ブレ補正"},
    {32, L"フェイスポートレート"},
    {33, L"ペット"},
    {34, L"スマイルショット"},
    {35, L"クイックシャッター"},
    {43, L"手持ち夜景"},
    {100, L"パノラマ"},
    {101, L"マジックフィルター"},
    {103, L"HDR"},
};

inline constexpr ValueName kOlympusMainFlashNames[] = {
    {2, L"発光"},
    {3, L"発光禁止"},
};

inline constexpr ValueName kOlympusFlashDeviceNames[] = {
    {0, L"なし"},
    {1, L"内蔵"},
    {4, L"外部"},
    {5, L"内蔵+外部"},
};

inline constexpr ValueName kOlympusFocusRangeNames[] = {
    {0, L"標準"},
    {1, L"マクロ"},
};

inline constexpr ValueName kOlympusMainFocusModeNames[] = {
    {0, L"オートフォーカス"},
    {1, L"マニュアルフォーカス"},
};

inline constexpr ValueName kOlympusMainSharpnessNames[] = {
    {0, L"標準"},
    {1, L"ハード"},
    {2, L"ソフト"},
};

// Code * 256 + sub-code.
inline constexpr ValueName kOlympusPresetBalanceNames[] = {
    {256, L"オート"},
    {258, L"オート（2）"},
    {260, L"オート（4）"},
    {514, L"3000K"},
    {515, L"3700K"},
    {516, L"4000K"},
    {517, L"4500K"},
    {518, L"5500K"},
    {519, L"6500K"},
    {520, L"7500K"},
    {768, L"ワンタッチ"},
};

inline constexpr ValueName kOlympusYesNoNames[] = {
    {0, L"なし"},
    {1, L"あり"},
};

inline constexpr ValueName kOlympusMainContrastNames[] = {
    {0, L"高い"},
    {1, L"標準"},
    {2, L"低い"},
};

inline constexpr ValueName kOlympusScanModeNames[] = {
    {0, L"インターレース"},
    {1, L"プログレッシブ"},
};

inline constexpr ValueName kOlympusOffOnNames[] = {
    {0, L"オフ"},
    {1, L"オン"},
};

// Equipment. Maker * 256 + number.
inline constexpr ValueName kOlympusExtenderNames[] = {
    {0, L"なし"},
    {4, L"EC-14"},
    {8, L"EX-25"},
    {16, L"EC-20"},
};

inline constexpr ValueName kOlympusFlashTypeNames[] = {
    {0, L"なし"},
    {2, L"簡易E-System"},
    {3, L"E-System"},
    {4, L"E-System（ボディ給電）"},
};

inline constexpr ValueName kOlympusFlashModelNames[] = {
    {0, L"なし"},
    {1, L"FL-20"},
    {2, L"FL-50"},
    {3, L"RF-11"},
    {4, L"TF-22"},
    {5, L"FL-36"},
    {6, L"FL-50R"},
    {7, L"FL-36R"},
    {9, L"FL-14"},
    {11, L"FL-600R"},
    {13, L"FL-LM3"},
    {15, L"FL-900R"},
};

// CameraSettings.
inline constexpr ValueName kOlympusExposureModeNames[] = {
    {1, L"マニュアル"},
    {2, L"プログラムAE"},
    {3, L"絞り優先AE"},
    {4, L"シャッター速度優先AE"},
    {5, L"プログラムシフト"},
};

inline constexpr ValueName kOlympusMeteringModeNames[] = {
    {2, L"中央重点平均測光"},
    {3, L"スポット測光"},
    {5, L"デジタルESP測光"},
    {261, L"ESP+AF測光"},
    {515, L"スポット測光（ハイライト）"},
    {1027, L"スポット測光（シャドウ）"},
};

inline constexpr ValueName kOlympusFocusModeNames[] = {
    {0, L"シングルAF"},
    {1, L"連写AF"},
    {2, L"コンティニュアスAF"},
    {3, L"マルチAF"},
    {4, L"顔検出"},
    {10, L"マニュアルフォーカス"},
};

// Bits.
inline constexpr ValueName kOlympusFocusBitNames[] = {
    {1, L"S-AF"},
    {4, L"C-AF"},
    {16, L"MF"},
    {32, L"顔検出"},
    {64, L"イメージャAF"},
    {128, L"拡大枠AF"},
    {256, L"位相差AF"},
};

inline constexpr ValueName kOlympusFocusProcessNames[] = {
    {0, L"AFなし"},
    {1, L"AFあり"},
};

inline constexpr ValueName kOlympusFocusSearchNames[] = {
    {0, L"未合焦"},
    {1, L"合焦"},
};

// Bits; 0 for none of them.
inline constexpr ValueName kOlympusFlashModeBitNames[] = {
    {0, L"発光禁止"},
    {1, L"発光"},
    {2, L"強制発光"},
    {4, L"赤目緩和"},
    {8, L"スローシンクロ"},
    {16, L"強制発光"},
    {32, L"後幕シンクロ"},
};

inline constexpr ValueName kOlympusFlashControlNames[] = {
    {0, L"オフ"},
    {3, L"TTL"},
    {4, L"オート"},
    {5, L"マニュアル"},
};

inline constexpr ValueName kOlympusWhiteBalanceNames[] = {
    {0, L"オート"},
    {16, L"7500K（日陰）"},
    {17, L"6000K（曇天）"},
    {18, L"5300K（晴天）"},
    {20, L"3000K（電球）"},
    {21, L"3600K（電球）"},
    {33, L"6600K（昼光色蛍光灯）"},
    {34, L"4500K（昼白色蛍光灯）"},
    {35, L"4000K（白色蛍光灯）"},
    {256, L"ワンタッチWB1"},
    {257, L"ワンタッチWB2"},
    {258, L"ワンタッチWB3"},
    {259, L"ワンタッチWB4"},
    {512, L"カスタムWB1"},
    {513, L"カスタムWB2"},
    {514, L"カスタムWB3"},
    {515, L"カスタムWB4"},
    {1, L"オート（電球色残しオフ）"},
    {22, L"オート設定"},
    {23, L"5500K（フラッシュ）"},
    {36, L"白色蛍光灯"},
    {48, L"3600K（電球）"},
    {67, L"水中"},
};

inline constexpr ValueName kOlympusModifiedSaturationNames[] = {
    {0, L"オフ"},
    {1, L"CM1（赤強調）"},
    {2, L"CM2（緑強調）"},
    {3, L"CM3（青強調）"},
    {4, L"CM4（肌色）"},
};

inline constexpr ValueName kOlympusColorSpaceNames[] = {
    {0, L"sRGB"},
    {1, L"Adobe RGB"},
    {2, L"ProPhoto RGB"},
};

inline constexpr ValueName kOlympusSceneModeNames[] = {
    {0, L"標準"},
    {6, L"オート"},
    {7, L"スポーツ"},
    {8, L"ポートレート"},
    {9, L"風景+人物"},
    {10, L"風景"},
    {11, L"夜景"},
    {12, L"自分撮り"},
    {13, L"パノラマ"},
    {14, L"2in1"},
    {15, L"ムービー"},
    {16, L"風景+人物"},
    {17, L"夜景+人物"},
    {18, L"屋内撮影"},
    {19, L"打ち上げ花火"},
    {20, L"夕日"},
    {21, L"美肌"},
    {22, L"マクロ"},
    {23, L"スーパーマクロ"},
    {24, L"料理"},
    {25, L"文書"},
    {26, L"ミュージアム"},
    {27, L"ショット&セレクト"},
    {28, L"ビーチ&スノー"},
    {29, L"自分撮り+セルフタイマー"},
    {30, L"キャンドル"},
    {31, L"自然光"},
    {32, L"ガラス越し"},
    {33, L"マイモード"},
    {34, L"ペット"},
    {35, L"水中ワイド1"},
    {36, L"水中マクロ"},
    {37, L"ショット&セレクト1"},
    {38, L"ショット&セレクト2"},
    {39, L"ハイキー"},
    {40, L"ブレ軽減"},
    {41, L"オークション"},
    {42, L"ビーチ"},
    {43, L"スノー"},
    {44, L"水中ワイド2"},
    {45, L"ローキー"},
    {46, L"キッズ"},
    {47, L"ビビッド"},
    {48, L"ネイチャーマクロ"},
    {49, L"水中スナップ"},
    {50, L"撮影ガイド"},
    {54, L"フェイスポートレート"},
    {57, L"バルブ"},
    {59, L"スマイルショット"},
    {60, L"クイックシャッター"},
    {63, L"スローシャッター"},
    {64, L"バードウォッチング"},
    {65, L"多重露出"},
    {66, L"eポートレート"},
    {67, L"ソフトバックグラウンド"},
    {142, L"手持ち夜景"},
    {154, L"HDR"},
    {197, L"流し撮り"},
    {203, L"光跡"},
    {204, L"逆光HDR"},
    {205, L"静音"},
    {206, L"深度ショット"},
};

// Bits; 0 for none of them.
inline constexpr ValueName kOlympusNoiseReductionBitNames[] = {
    {0, L"なし"},
    {1, L"ノイズリダクション"},
    {2, L"ノイズフィルタ"},
    {4, L"ノイズフィルタ（ISOブースト）"},
    {8, L"オート"},
};

inline constexpr ValueName kOlympusGradationNames[] = {
    {-1, L"ローキー"},
    {0, L"標準"},
    {1, L"ハイキー"},
};

inline constexpr ValueName kOlympusGradationAutoNames[] = {
    {1, L"オート"},
};

inline constexpr ValueName kOlympusPictureModeNames[] = {
    {1, L"ビビッド"},
    {2, L"ナチュラル"},
    {3, L"フラット"},
    {4, L"ポートレート"},
    {5, L"i-Finish"},
    {6, L"eポートレート"},
    {7, L"カラークリエーター"},
    {8, L"水中"},
    {9, L"カラープロファイル1"},
    {10, L"カラープロファイル2"},
    {11, L"カラープロファイル3"},
    {12, L"モノクロプロファイル1"},
    {13, L"モノクロプロファイル2"},
    {14, L"モノクロプロファイル3"},
    {17, L"アートフィルター"},
    {18, L"モノクロプロファイル4"},
    {256, L"モノトーン"},
    {512, L"セピア"},
};

inline constexpr ValueName kOlympusMonochromeFilterNames[] = {
    {0, L"なし"},
    {1, L"ニュートラル"},
    {2, L"黄"},
    {3, L"オレンジ"},
    {4, L"赤"},
    {5, L"緑"},
};

inline constexpr ValueName kOlympusMonochromeToneNames[] = {
    {0, L"なし"},
    {1, L"ニュートラル"},
    {2, L"セピア"},
    {3, L"青"},
    {4, L"紫"},
    {5, L"緑"},
};

inline constexpr ValueName kOlympusNoiseFilterNames[] = {
    {-2, L"オフ"},
    {-1, L"弱"},
    {0, L"標準"},
    {1, L"強"},
};

inline constexpr ValueName kOlympusArtFilterNames[] = {
    {0, L"オフ"},
    {1, L"ファンタジックフォーカス"},
    {2, L"ポップアート"},
    {3, L"デイドリーム"},
    {4, L"ライトトーン"},
    {5, L"トイフォト"},
    {6, L"ラフモノクローム"},
    {9, L"ジオラマ"},
    {10, L"クロスプロセス"},
    {12, L"フィッシュアイ"},
    {13, L"スケッチ"},
    {14, L"ジェントルセピア"},
    {15, L"デイドリームII"},
    {16, L"ポップアートII"},
    {17, L"トイフォトII"},
    {18, L"トイフォトIII"},
    {19, L"ラフモノクロームII"},
    {20, L"ドラマチックトーン"},
    {21, L"パンク"},
    {22, L"ファンタジックフォーカス2"},
    {23, L"クリスタル"},
    {24, L"ウォーターカラー"},
    {25, L"リーニュクレール"},
};

inline constexpr ValueName kOlympusDriveModeNames[] = {
    {0, L"1コマ撮影"},
    {1, L"連続撮影"},
    {2, L"AEブラケット"},
    {3, L"WBブラケット"},
    {4, L"AE+WBブラケット"},
    {5, L"ブラケット"},
};

// Bits.
inline constexpr ValueName kOlympusBracketBitNames[] = {
    {1, L"AE"},
    {2, L"WB"},
    {4, L"FL"},
    {8, L"MF"},
    {16, L"ISO"},
    {64, L"フォーカス"},
};

inline constexpr ValueName kOlympusPanoramaModeNames[] = {
    {0, L"オフ"},
    {1, L"左→右"},
    {2, L"右→左"},
    {3, L"下→上"},
    {4, L"上→下"},
};

inline constexpr ValueName kOlympusImageQualityNames[] = {
    {1, L"SQ"},
    {2, L"HQ"},
    {3, L"SHQ"},
    {4, L"RAW"},
    {5, L"SQ"},
};

inline constexpr ValueName kOlympusImageStabilizationNames[] = {
    {0, L"オフ"},
    {1, L"オン/モード1"},
    {2, L"オン/モード2"},
    {3, L"オン/モード3"},
    {4, L"オン/オート"},
};

// RawInfo.
inline constexpr ValueName kOlympusLightSourceNames[] = {
    {0, L"不明"},
    {16, L"日陰"},
    {17, L"曇天"},
    {18, L"晴天"},
    {20, L"電球"},
    {22, L"夕日"},
    {33, L"昼光色蛍光灯"},
    {34, L"昼白色蛍光灯"},
    {35, L"白色蛍光灯"},
    {36, L"白色蛍光灯"},
    {256, L"ワンタッチ"},
    {512, L"カスタム"},
};

// clang-format on

}  // namespace qmx
