#pragma once
// Names of the coded values of Canon's notes; codes are those of the public tag lists.  Data only.

#include "text/value_names.h"

namespace qmx {

// One row per line, to be proof-read.
// clang-format off

// Camera settings, tag 0x0001.
inline constexpr ValueName kCanonMacroModeNames[] = {
    {1, L"マクロ"},
    {2, L"標準"},
};

inline constexpr ValueName kCanonQualityNames[] = {
    {-1, L"なし"},
    {1, L"エコノミー"},
    {2, L"ノーマル"},
    {3, L"ファイン"},
    {4, L"RAW"},
    {5, L"スーパーファイン"},
    {7, L"CRAW"},
    {130, L"RAW（ライト）"},
    {131, L"RAW（標準）"},
};

inline constexpr ValueName kCanonFlashModeNames[] = {
    {-1, L"なし"},
    {0, L"発光禁止"},
    {1, L"オート"},
    {2, L"強制発光"},
    {3, L"赤目緩和"},
    {4, L"スローシンクロ"},
    {5, L"オート（赤目緩和）"},
    {6, L"強制発光（赤目緩和）"},
    {16, L"外部ストロボ"},
};

inline constexpr ValueName kCanonDriveModeNames[] = {
    {0, L"1コマ撮影"},
    {1, L"連続撮影"},
    {2, L"動画"},
    {3, L"連続撮影（速度優先）"},
    {4, L"低速連続撮影"},
    {5, L"高速連続撮影"},
    {6, L"静音1コマ撮影"},
    {8, L"高速連続撮影+"},
    {9, L"静音1コマ撮影"},
    {10, L"静音連続撮影"},
};

inline constexpr ValueName kCanonFocusModeNames[] = {
    {0, L"ワンショットAF"},
    {1, L"AIサーボAF"},
    {2, L"AIフォーカスAF"},
    {3, L"マニュアルフォーカス"},
    {4, L"シングルAF"},
    {5, L"コンティニュアスAF"},
    {6, L"マニュアルフォーカス"},
    {16, L"パンフォーカス"},
    {256, L"ワンショットAF（ライブビュー）"},
    {257, L"AIサーボAF（ライブビュー）"},
    {258, L"AIフォーカスAF（ライブビュー）"},
    {512, L"スナップフォーカス"},
    {519, L"動画サーボAF"},
};

inline constexpr ValueName kCanonImageSizeNames[] = {
    {-1, L"なし"},
    {0, L"ラージ"},
    {1, L"ミドル"},
    {2, L"スモール"},
    {5, L"ミドル1"},
    {6, L"ミドル2"},
    {7, L"ミドル3"},
    {8, L"はがき"},
    {9, L"ワイド"},
    {10, L"ミドルワイド"},
    {14, L"スモール1"},
    {15, L"スモール2"},
    {16, L"スモール3"},
    {128, L"動画 640 x 480"},
    {129, L"動画 ミドル"},
    {130, L"動画 スモール"},
    {137, L"動画 1280 x 720"},
    {142, L"動画 1920 x 1080"},
    {143, L"動画 4096 x 2160"},
};

// The mode dial, where it stands on a scene.
inline constexpr ValueName kCanonEasyModeNames[] = {
    {0, L"フルオート"},
    {1, L"マニュアル"},
    {2, L"風景"},
    {3, L"高速シャッター"},
    {4, L"低速シャッター"},
    {5, L"夜景"},
    {6, L"グレースケール"},
    {7, L"セピア"},
    {8, L"ポートレート"},
    {9, L"スポーツ"},
    {10, L"マクロ"},
    {11, L"白黒"},
    {12, L"パンフォーカス"},
    {13, L"くっきりカラー"},
    {14, L"すっきりカラー"},
    {15, L"発光禁止"},
    {16, L"長秒時撮影"},
    {17, L"スーパーマクロ"},
    {18, L"新緑/紅葉"},
    {19, L"パーティー/室内"},
    {20, L"打上げ花火"},
    {21, L"ビーチ"},
    {22, L"水中"},
    {23, L"スノー"},
    {24, L"キッズ&ペット"},
    {25, L"ナイトスナップ"},
    {26, L"デジタルマクロ"},
    {27, L"マイカラー"},
    {28, L"動画スナップ"},
    {29, L"スーパーマクロ2"},
    {30, L"ワンポイントカラー"},
    {31, L"スイッチカラー"},
    {32, L"水族館"},
    {33, L"ISO3200"},
    {34, L"ISO6400"},
    {35, L"クリエイティブライト効果"},
    {36, L"らくらく"},
    {37, L"クイックショット"},
    {38, L"クリエイティブ全自動"},
    {39, L"ズームブラー"},
    {40, L"ローライト"},
    {41, L"ノスタルジック"},
    {42, L"極彩色"},
    {43, L"オールドポスター"},
    {44, L"顔セルフタイマー"},
    {45, L"スマイル"},
    {46, L"ウインクセルフタイマー"},
    {47, L"魚眼風"},
    {48, L"ジオラマ風"},
    {49, L"ハイスピード連写"},
    {50, L"ベストショット選択"},
    {51, L"ハイダイナミックレンジ"},
    {52, L"手持ち夜景"},
    {53, L"ムービーダイジェスト"},
    {54, L"ライブビューコントロール"},
    {55, L"サイレント"},
    {56, L"手ブレ軽減"},
    {57, L"モノクロ"},
    {58, L"トイカメラ風"},
    {59, L"シーンインテリジェントオート"},
    {60, L"ハイスピード連写HQ"},
    {61, L"美肌"},
    {62, L"ソフトフォーカス"},
    {68, L"料理"},
    {84, L"絵画調標準"},
    {85, L"絵画調ビビッド"},
    {93, L"絵画調ボールド"},
    {257, L"スポットライト"},
    {258, L"夜景2"},
    {259, L"夜景+"},
    {260, L"スーパー夜景"},
    {261, L"夕焼け"},
    {263, L"夜景"},
    {264, L"水面"},
    {265, L"ローライト2"},
};

inline constexpr ValueName kCanonDigitalZoomNames[] = {
    {0, L"オフ"},
    {1, L"2倍"},
    {2, L"4倍"},
    {3, L"その他"},
};

// Contrast and saturation of compacts.
inline constexpr ValueName kCanonContrastNames[] = {
    {-2, L"とても低い"},
    {-1, L"低い"},
    {0, L"標準"},
    {1, L"高い"},
    {2, L"とても高い"},
};

inline constexpr ValueName kCanonSharpnessNames[] = {
    {-2, L"ソフト2"},
    {-1, L"ソフト"},
    {0, L"標準"},
    {1, L"ハード"},
    {2, L"ハード2"},
};

// 0 leaves the speed to Exif.
inline constexpr ValueName kCanonIsoNames[] = {
    {14, L"オートHI"},
    {15, L"オート"},
    {16, L"50"},
    {17, L"100"},
    {18, L"200"},
    {19, L"400"},
    {20, L"800"},
};

inline constexpr ValueName kCanonMeteringModeNames[] = {
    {0, L"標準"},
    {1, L"スポット測光"},
    {2, L"平均測光"},
    {3, L"評価測光"},
    {4, L"部分測光"},
    {5, L"中央重点平均測光"},
};

inline constexpr ValueName kCanonFocusRangeNames[] = {
    {0, L"マニュアル"},
    {1, L"オート"},
    {2, L"不明"},
    {3, L"マクロ"},
    {4, L"至近"},
    {5, L"近距離"},
    {6, L"中距離"},
    {7, L"遠景"},
    {8, L"パンフォーカス"},
    {9, L"スーパーマクロ"},
    {10, L"無限遠"},
};

inline constexpr ValueName kCanonAfPointNames[] = {
    {8197, L"任意選択"},
    {12288, L"なし（MF）"},
    {12289, L"自動選択"},
    {12290, L"右"},
    {12291, L"中央"},
    {12292, L"左"},
    {16385, L"自動選択"},
    {16390, L"顔検出"},
};

inline constexpr ValueName kCanonExposureModeNames[] = {
    {0, L"かんたん撮影"},
    {1, L"プログラムAE"},
    {2, L"シャッター速度優先AE"},
    {3, L"絞り優先AE"},
    {4, L"マニュアル"},
    {5, L"深度優先AE"},
    {6, L"M-DEP"},
    {7, L"バルブ"},
    {8, L"フレキシブルAE"},
};

// The low 7 bits of the flash activity.
inline constexpr ValueName kCanonFlashUnitNames[] = {
    {0, L"なし"},
    {4, L"540EZ"},
    {5, L"380EX"},
    {6, L"550EX"},
    {8, L"ST-E2"},
    {9, L"MR-14EX"},
    {12, L"580EX"},
    {13, L"430EX"},
    {17, L"580EX II"},
    {18, L"430EX II"},
    {22, L"600EX-RT"},
    {23, L"600EX II-RT"},
    {24, L"90EX"},
    {25, L"430EX III-RT"},
};

inline constexpr ValueName kCanonFocusContinuousNames[] = {
    {0, L"シングル"},
    {1, L"コンティニュアス"},
    {8, L"マニュアル"},
};

inline constexpr ValueName kCanonAeSettingNames[] = {
    {0, L"通常AE"},
    {1, L"露出補正"},
    {2, L"AEロック"},
    {3, L"AEロック+露出補正"},
    {4, L"AEなし"},
};

inline constexpr ValueName kCanonImageStabilizationNames[] = {
    {0, L"オフ"},
    {1, L"オン"},
    {2, L"撮影時"},
    {3, L"流し撮り"},
    {4, L"ダイナミック"},
    {256, L"オフ"},
    {257, L"オン"},
    {258, L"撮影時"},
    {259, L"流し撮り"},
    {260, L"ダイナミック"},
};

inline constexpr ValueName kCanonPhotoEffectNames[] = {
    {0, L"オフ"},
    {1, L"くっきりカラー"},
    {2, L"すっきりカラー"},
    {3, L"ソフト"},
    {4, L"セピア"},
    {5, L"白黒"},
    {6, L"カスタム"},
    {100, L"マイカラー"},
};

// Focal length, tag 0x0002.
inline constexpr ValueName kCanonFocalTypeNames[] = {
    {1, L"単焦点"},
    {2, L"ズーム"},
};

// Shot information, tag 0x0004.
inline constexpr ValueName kCanonWhiteBalanceNames[] = {
    {0, L"オート"},
    {1, L"太陽光"},
    {2, L"曇り"},
    {3, L"白熱灯"},
    {4, L"蛍光灯"},
    {5, L"フラッシュ"},
    {6, L"カスタム"},
    {7, L"モノクロ"},
    {8, L"日陰"},
    {9, L"色温度直接指定"},
    {10, L"PC Set1"},
    {11, L"PC Set2"},
    {12, L"PC Set3"},
    {14, L"昼光蛍光灯"},
    {15, L"カスタム1"},
    {16, L"カスタム2"},
    {17, L"水中"},
};

inline constexpr ValueName kCanonSlowShutterNames[] = {
    {-1, L"なし"},
    {0, L"オフ"},
    {1, L"夜景"},
    {2, L"オン"},
    {3, L"なし"},
};

inline constexpr ValueName kCanonBracketingNames[] = {
    {-1, L"オン"},
    {0, L"オフ"},
    {1, L"オン（1枚目）"},
    {2, L"オン（2枚目）"},
    {3, L"オン（3枚目）"},
};

inline constexpr ValueName kCanonCameraTypeNames[] = {
    {248, L"EOS（上級機）"},
    {250, L"コンパクト"},
    {252, L"EOS（中級機）"},
    {255, L"ビデオカメラ"},
};

inline constexpr ValueName kCanonAutoRotateNames[] = {
    {-1, L"なし"},
    {0, L"なし"},
    {1, L"右90度"},
    {2, L"180度"},
    {3, L"左90度"},
};

inline constexpr ValueName kCanonNdFilterNames[] = {
    {0, L"オフ"},
    {1, L"オン"},
};

// Points in focus of compacts and the first EOS bodies.
inline constexpr ValueName kCanonPointNames[] = {
    {12288, L"なし（MF）"},
    {12289, L"右"},
    {12290, L"中央"},
    {12291, L"中央+右"},
    {12292, L"左"},
    {12293, L"左+右"},
    {12294, L"左+中央"},
    {12295, L"左+中央+右"},
};

// Points in focus as bits, see HasCanonPointBits.
inline constexpr ValueName kCanonPointBitNames[] = {
    {1, L"上"},
    {2, L"左上"},
    {4, L"右上"},
    {8, L"左"},
    {16, L"中央"},
    {32, L"右"},
    {64, L"左下"},
    {128, L"右下"},
    {256, L"下"},
};

// Panorama, tag 0x0005.
inline constexpr ValueName kCanonPanoramaDirectionNames[] = {
    {0, L"左→右"},
    {1, L"右→左"},
    {2, L"下→上"},
    {3, L"上→下"},
    {4, L"2x2（右回り）"},
};

// Camera information, tag 0x000D.
inline constexpr ValueName kCanonTonePriorityNames[] = {
    {0, L"しない"},
    {1, L"する"},
};

// High-ISO noise reduction and lighting optimizer.
inline constexpr ValueName kCanonStrengthNames[] = {
    {0, L"標準"},
    {1, L"弱め"},
    {2, L"強め"},
    {3, L"しない"},
};

// Word 2 of tag 0x001D.
inline constexpr ValueName kCanonMyColorsNames[] = {
    {0, L"オフ"},
    {1, L"ポジフィルムカラー"},
    {2, L"色白肌"},
    {3, L"褐色肌"},
    {4, L"あざやかブルー"},
    {5, L"あざやかグリーン"},
    {6, L"あざやかレッド"},
    {7, L"ワンポイントカラー"},
    {8, L"スイッチカラー"},
    {9, L"カスタムカラー"},
    {12, L"くっきりカラー"},
    {13, L"すっきりカラー"},
    {14, L"セピア"},
    {15, L"白黒"},
};

// File information, tag 0x0093.
inline constexpr ValueName kCanonBracketModeNames[] = {
    {0, L"オフ"},
    {1, L"AEB"},
    {2, L"FEB"},
    {3, L"ISO"},
    {4, L"WB"},
};

inline constexpr ValueName kCanonLongExposureNames[] = {
    {0, L"オフ"},
    {1, L"オン"},
    {3, L"オン"},
    {4, L"オート"},
};

inline constexpr ValueName kCanonWhiteBalanceBracketNames[] = {
    {0, L"オフ"},
    {1, L"オン（アンバー・ブルー）"},
    {2, L"オン（グリーン・マゼンタ）"},
};

inline constexpr ValueName kCanonFilterEffectNames[] = {
    {0, L"なし"},
    {1, L"黄"},
    {2, L"オレンジ"},
    {3, L"赤"},
    {4, L"緑"},
};

inline constexpr ValueName kCanonToningEffectNames[] = {
    {0, L"なし"},
    {1, L"セピア"},
    {2, L"青"},
    {3, L"紫"},
    {4, L"緑"},
};

// Processing information, tag 0x00A0.
inline constexpr ValueName kCanonToneCurveNames[] = {
    {0, L"標準"},
    {1, L"マニュアル"},
    {2, L"カスタム"},
};

inline constexpr ValueName kCanonSharpnessFrequencyNames[] = {
    {0, L"なし"},
    {1, L"最低"},
    {2, L"低い"},
    {3, L"標準"},
    {4, L"高い"},
    {5, L"最高"},
};

// Colour matrices of the 1-series before there were styles, then styles.
inline constexpr ValueName kCanonPictureStyleNames[] = {
    {0, L"なし"},
    {1, L"スタンダード"},
    {2, L"ポートレート"},
    {3, L"高彩度"},
    {4, L"Adobe RGB"},
    {5, L"低彩度"},
    {6, L"CMセット1"},
    {7, L"CMセット2"},
    {33, L"ユーザー設定1"},
    {34, L"ユーザー設定2"},
    {35, L"ユーザー設定3"},
    {65, L"PC1"},
    {66, L"PC2"},
    {67, L"PC3"},
    {129, L"スタンダード"},
    {130, L"ポートレート"},
    {131, L"風景"},
    {132, L"ニュートラル"},
    {133, L"忠実設定"},
    {134, L"モノクロ"},
    {135, L"オート"},
    {136, L"ディテール重視"},
    {255, L"なし"},
    {-1, L"なし"},
    {65535, L"なし"},
};

// Tag 0x00B4.
inline constexpr ValueName kCanonColorSpaceNames[] = {
    {1, L"sRGB"},
    {2, L"Adobe RGB"},
};

// clang-format on

}  // namespace qmx
