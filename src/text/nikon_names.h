#pragma once
// Names of the coded values of Nikon's notes; texts and codes are those of the public tag lists.
// Data only.

#include "text/value_names.h"

namespace qmx {

// One row per line, to be proof-read.
// clang-format off

// ---- Texts, by their beginnings.

inline constexpr PrefixName kNikonWhiteBalanceNames[] = {
    {"AUTO0", L"オート0"},
    {"AUTO1", L"オート1"},
    {"AUTO2", L"オート2"},
    {"AUTO", L"オート"},
    {"NATURAL AUTO", L"自然光オート"},
    {"INCANDESCENT", L"電球"},
    {"FLUORESCENT", L"蛍光灯"},
    {"SUNNY", L"晴天"},
    {"FLASH", L"フラッシュ"},
    {"CLOUDY", L"曇り"},
    {"SHADE", L"日陰"},
    {"PRESET0", L"プリセット0"},
    {"PRESET1", L"プリセット1"},
    {"PRESET2", L"プリセット2"},
    {"PRESET3", L"プリセット3"},
    {"PRESET4", L"プリセット4"},
    {"PRESET5", L"プリセット5"},
    {"PRESET6", L"プリセット6"},
    {"PRESET", L"プリセット"},
    {"WHITE PRESET", L"プリセット"},
    {"DAY WHITE FL", L"昼白色蛍光灯"},
    {"COLOR TEMP", L"色温度設定"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonColorModeNames[] = {
    {"COLOR", L"カラー"},
    {"B & W", L"白黒"},
    {"SEPIA", L"セピア"},
    {"COOL", L"クール"},
    {"VIVID", L"ビビッド"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonQualityNames[] = {
    {"RAW", L"RAW"},
    {"NRW", L"RAW"},
    {"FINE", L"ファイン"},
    {"NORMAL", L"ノーマル"},
    {"BASIC", L"ベーシック"},
    {"EXFINE", L"エクストラファイン"},
    {"HI", L"HI（非圧縮）"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonSharpeningNames[] = {
    {"AUTO", L"オート"},
    {"NORMAL", L"標準"},
    {"LOW", L"弱"},
    {"MED.L", L"やや弱"},
    {"MED.H", L"やや強"},
    {"HIGH", L"強"},
    {"NONE", L"なし"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonFocusModeNames[] = {
    {"AF-S", L"シングルAF"},
    {"AF-C", L"コンティニュアスAF"},
    {"AF-A", L"AF自動切替"},
    {"AF-F", L"常時AF"},
    {"MANUAL", L"マニュアルフォーカス"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonFlashSettingNames[] = {
    {"NORMAL", L"標準"},
    {"RED-EYE SLOW", L"赤目緩和スローシンクロ"},
    {"RED-EYE", L"赤目緩和"},
    {"REAR SLOW", L"後幕スローシンクロ"},
    {"REAR", L"後幕シンクロ"},
    {"SLOW", L"スローシンクロ"},
    {"NEW_TTL", L"D-TTL"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonFlashTypeNames[] = {
    {"Built-in,TTL&Comdr.", L"内蔵（TTL+コマンダー）"},
    {"Built-in,TTL", L"内蔵（TTL）"},
    {"Built-in,RPT", L"内蔵（リピーティング）"},
    {"Built-in,M", L"内蔵（マニュアル）"},
    {"Optional,TTL&Comdr.", L"外付（TTL+コマンダー）"},
    {"Optional,TTL", L"外付（TTL）"},
    {"Optional,RPT&Comdr.", L"外付（リピーティング+コマンダー）"},
    {"Optional,RPT", L"外付（リピーティング）"},
    {"Optional,Comdr.", L"外付（コマンダー）"},
    {"Optional,M", L"外付（マニュアル）"},
    {"Comdr.", L"コマンダー"},
    {"NEW_TTL", L"D-TTL"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonIsoSelectionNames[] = {
    {"AUTO", L"オート"},
    {"MANUAL", L"マニュアル"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonImageAdjustmentNames[] = {
    {"AUTO", L"オート"},
    {"NORMAL", L"標準"},
    {"CONTRAST(+)", L"コントラスト強"},
    {"CONTRAST(-)", L"コントラスト弱"},
    {"BRIGHTNESS(+)", L"明るく"},
    {"BRIGHTNESS(-)", L"暗く"},
    {"B & W", L"白黒"},
    {"SEPIA", L"セピア"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonToneCompNames[] = {
    {"AUTO", L"オート"},
    {"NORMAL", L"標準"},
    {"LOW", L"コントラスト弱"},
    {"MED.L", L"コントラストやや弱"},
    {"MID.L", L"コントラストやや弱"},
    {"MED.H", L"コントラストやや強"},
    {"MID.H", L"コントラストやや強"},
    {"HIGH", L"コントラスト強"},
    {"CS", L"カスタム"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonAuxiliaryLensNames[] = {
    {"OFF", L"なし"},
    {"FISHEYE 1", L"フィッシュアイ1"},
    {"FISHEYE 2", L"フィッシュアイ2"},
    {"TELEPHOTO 1", L"テレコンバーター1"},
    {"TELEPHOTO 2", L"テレコンバーター2"},
    {"TELEPHOTO", L"テレコンバーター"},
    {"WIDE ADAPTER", L"ワイドコンバーター"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonColorHueNames[] = {
    {"MODE1a", L"モードIa（sRGB）"},
    {"MODE1", L"モードI（sRGB）"},
    {"MODE2", L"モードII（Adobe RGB）"},
    {"MODE3a", L"モードIIIa（sRGB）"},
    {"MODE3", L"モードIII（sRGB）"},
    {"B & W", L"白黒"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonSceneModeNames[] = {
    {"PORTRAIT", L"ポートレート"},
    {"PARTY/INDOOR", L"パーティー"},
    {"NIGHT PORTRAIT", L"夜景ポートレート"},
    {"BEACH/SNOW", L"海・雪"},
    {"LANDSCAPE", L"風景"},
    {"SUNSET", L"夕焼け"},
    {"NIGHT SCENE", L"夜景"},
    {"MUSEUM", L"美術館"},
    {"FIREWORKS", L"花火"},
    {"CLOSE UP", L"クローズアップ"},
    {"COPY", L"文字の撮影"},
    {"BACK LIGHT", L"逆光"},
    {"PANORAMA ASSIST", L"パノラマアシスト"},
    {"SPORT", L"スポーツ"},
    {"DAWN/DUSK", L"トワイライト"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonLightSourceNames[] = {
    {"SPEEDLIGHT", L"スピードライト"},
    {"NATURAL", L"自然光"},
    {"COLORED", L"人工光"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonNoiseReductionNames[] = {
    {"OFF", L"オフ"},
    {"FPNR", L"オン"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonImageOptimizationNames[] = {
    {"NORMAL", L"標準"},
    {"SOFT", L"ソフト"},
    {"VIVID", L"鮮やか"},
    {"MORE VIVID", L"より鮮やか"},
    {"PORTRAIT", L"ポートレート"},
    {"LAND SCAPE", L"風景"},
    {"LANDSCAPE", L"風景"},
    {"BLACK AND WHITE", L"白黒"},
    {"CUSTOM", L"カスタム"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonSaturationNames[] = {
    {"AUTO", L"オート"},
    {"NORMAL", L"標準"},
    {"MODERATE", L"低い"},
    {"ENHANCED", L"高い"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonVariProgramNames[] = {
    {"AUTO(FLASH OFF)", L"オート（発光禁止）"},
    {"AUTO", L"オート"},
    {"PORTRAIT", L"ポートレート"},
    {"LANDSCAPE", L"風景"},
    {"CLOSE UP", L"クローズアップ"},
    {"SPORT", L"スポーツ"},
    {"NIGHT LANDSCAPE", L"夜景"},
    {"NIGHT PORTRAIT", L"夜景ポートレート"},
    {"KIDS SNAP", L"こどもスナップ"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonVrTextNames[] = {
    {"VR-ON", L"オン"},
    {"VR-OFF", L"オフ"},
    {"VR-HYBRID", L"ハイブリッド"},
    {"VR-ACTIVE", L"アクティブ"},
    {nullptr, nullptr},
};

inline constexpr PrefixName kNikonAfResponseNames[] = {
    {"STANDARD", L"標準"},
    {"HYBRID", L"ハイブリッド"},
    {nullptr, nullptr},
};

// ---- Codes.

inline constexpr ValueName kNikonColorSpaceNames[] = {
    {1, L"sRGB"},
    {2, L"Adobe RGB"},
    {4, L"BT.2100"},
};

inline constexpr ValueName kNikonActiveDLightingNames[] = {
    {0, L"オフ"},
    {1, L"弱め"},
    {3, L"標準"},
    {5, L"強め"},
    {7, L"より強め"},
    {8, L"より強め1"},
    {9, L"より強め2"},
    {10, L"より強め3"},
    {11, L"より強め4"},
    {65535, L"オート"},
};

inline constexpr ValueName kNikonVignetteControlNames[] = {
    {0, L"オフ"},
    {1, L"弱め"},
    {3, L"標準"},
    {5, L"強め"},
};

inline constexpr ValueName kNikonHighIsoNrNames[] = {
    {0, L"オフ"},
    {1, L"微弱"},
    {2, L"弱め"},
    {3, L"やや弱め"},
    {4, L"標準"},
    {5, L"やや強め"},
    {6, L"強め"},
};

inline constexpr ValueName kNikonVrNames[] = {
    {0, L"なし"},
    {1, L"オン"},
    {2, L"オフ"},
};

inline constexpr ValueName kNikonVrModeNames[] = {
    {0, L"ノーマル"},
    {1, L"オン1"},
    {2, L"アクティブ"},
    {3, L"スポーツ"},
};

inline constexpr ValueName kNikonAutoDistortionNames[] = {
    {0, L"オフ"},
    {1, L"オン"},
    {2, L"オン（水中）"},
};

inline constexpr ValueName kNikonShutterModeNames[] = {
    {0, L"メカシャッター"},
    {16, L"電子シャッター"},
    {48, L"電子先幕シャッター"},
    {64, L"電子シャッター（動画）"},
    {80, L"オート（メカシャッター）"},
    {81, L"オート（電子先幕シャッター）"},
    {96, L"電子シャッター（高速）"},
};

inline constexpr ValueName kNikonFlashModeNames[] = {
    {0, L"発光せず"},
    {1, L"マニュアル発光"},
    {3, L"充電中"},
    {6, L"オフ"},
    {7, L"外部ストロボ発光"},
    {8, L"コマンダーモード発光"},
    {9, L"TTL発光"},
    {18, L"LEDライト"},
};

inline constexpr ValueName kNikonShootingModeNames[] = {
    {1, L"連続撮影"},
    {2, L"露出ディレー"},
    {4, L"PC制御"},
    {8, L"セルフタイマー"},
    {16, L"露出ブラケット"},
    {32, L"感度自動制御"},
    {64, L"WBブラケット"},
    {128, L"リモコン"},
    {256, L"ADLブラケット"},
    {2048, L"プリキャプチャー"},
};

inline constexpr ValueName kNikonNefCompressionNames[] = {
    {1, L"圧縮（タイプ1）"},
    {2, L"非圧縮"},
    {3, L"ロスレス圧縮"},
    {4, L"圧縮（タイプ2）"},
    {5, L"12bitパック"},
    {6, L"非圧縮（12bit）"},
    {7, L"12bit"},
    {8, L"スモール"},
    {9, L"12bitパック"},
    {10, L"14bitパック"},
    {13, L"高効率"},
    {14, L"高効率★"},
};

inline constexpr ValueName kNikonAfAreaModeNames[] = {
    {0, L"シングルエリアAF"},
    {1, L"ダイナミックAF"},
    {2, L"至近優先ダイナミックAF"},
    {3, L"グループダイナミックAF"},
    {4, L"シングルエリアAF（ワイド）"},
    {5, L"ダイナミックAF（ワイド）"},
};

inline constexpr ValueName kNikonAfPointNames[] = {
    {0, L"中央"},
    {1, L"上"},
    {2, L"下"},
    {3, L"左"},
    {4, L"右"},
    {5, L"左上"},
    {6, L"右上"},
    {7, L"左下"},
    {8, L"右下"},
    {9, L"左端"},
    {10, L"右端"},
};

inline constexpr ValueName kNikonAfPointsInFocusNames[] = {
    {1, L"中央"},
    {2, L"上"},
    {4, L"下"},
    {8, L"左"},
    {16, L"右"},
    {32, L"左上"},
    {64, L"右上"},
    {128, L"左下"},
    {256, L"右下"},
    {512, L"左端"},
    {1024, L"右端"},
};

inline constexpr ValueName kNikonLensTypeNames[] = {
    {1, L"MF"},
    {2, L"D"},
    {4, L"G"},
    {8, L"VR"},
    {16, L"1マウント"},
    {32, L"FT-1"},
    {64, L"E"},
    {128, L"AF-P"},
};

inline constexpr ValueName kNikonAfAreaModePdNames[] = {
    {0, L"シングルポイントAF"},
    {1, L"ダイナミックAF"},
    {2, L"至近優先ダイナミックAF"},
    {3, L"グループダイナミックAF"},
    {4, L"ダイナミックAF（9点）"},
    {5, L"ダイナミックAF（21点）"},
    {6, L"ダイナミックAF（51点）"},
    {7, L"ダイナミックAF（51点、3D-トラッキング）"},
    {8, L"オートエリアAF"},
    {9, L"3D-トラッキング"},
    {10, L"シングルポイントAF（ワイド）"},
    {11, L"ダイナミックAF（ワイド）"},
    {12, L"ダイナミックAF（ワイド、3D-トラッキング）"},
    {13, L"グループエリアAF"},
    {14, L"ダイナミックAF（25点）"},
    {15, L"ダイナミックAF（72点）"},
    {16, L"グループエリアAF（HL）"},
    {17, L"グループエリアAF（VL）"},
    {18, L"ダイナミックAF（49点）"},
    {128, L"シングルポイント"},
    {129, L"オートエリア"},
    {130, L"ターゲット追尾"},
    {131, L"顔認識"},
};

inline constexpr ValueName kNikonAfAreaModeCdNames[] = {
    {0, L"コントラストAF"},
    {1, L"ノーマルエリアAF"},
    {2, L"ワイドエリアAF"},
    {3, L"顔認識AF"},
    {4, L"ターゲット追尾AF"},
    {128, L"シングルポイント"},
    {129, L"オートエリア"},
    {130, L"ターゲット追尾"},
    {131, L"顔認識"},
    {192, L"ピンポイントAF"},
    {193, L"シングルポイントAF"},
    {194, L"ダイナミックAF"},
    {195, L"ワイドエリアAF（S）"},
    {196, L"ワイドエリアAF（L）"},
    {197, L"オートエリアAF"},
    {198, L"オートエリアAF（人物）"},
    {199, L"オートエリアAF（動物）"},
};

inline constexpr ValueName kNikonCropHiSpeedNames[] = {
    {0, L"オフ"},
    {1, L"1.3×クロップ"},
    {2, L"DXクロップ"},
    {3, L"5:4クロップ"},
    {4, L"3:2クロップ"},
    {6, L"16:9クロップ"},
    {8, L"2.7×クロップ"},
    {9, L"DX動画16:9"},
    {10, L"1.3×動画"},
    {11, L"FX"},
    {12, L"DX"},
    {17, L"FX 1:1"},
    {18, L"DX 1:1"},
};

inline constexpr ValueName kNikonIsoExpansionNames[] = {
    {0, L"オフ"},
    {257, L"Hi 0.3"},
    {258, L"Hi 0.5"},
    {259, L"Hi 0.7"},
    {260, L"Hi 1.0"},
    {261, L"Hi 1.3"},
    {262, L"Hi 1.5"},
    {263, L"Hi 1.7"},
    {264, L"Hi 2.0"},
    {265, L"Hi 2.3"},
    {266, L"Hi 2.5"},
    {267, L"Hi 2.7"},
    {268, L"Hi 3.0"},
    {272, L"Hi 4.0"},
    {276, L"Hi 5.0"},
    {513, L"Lo 0.3"},
    {514, L"Lo 0.5"},
    {515, L"Lo 0.7"},
    {516, L"Lo 1.0"},
};

inline constexpr ValueName kNikonPictureControlAdjustNames[] = {
    {0, L"標準設定"},
    {1, L"クイック調整"},
    {2, L"詳細調整"},
};

inline constexpr ValueName kNikonFilterEffectNames[] = {
    {128, L"オフ"},
    {129, L"黄"},
    {130, L"オレンジ"},
    {131, L"赤"},
    {132, L"緑"},
};

inline constexpr ValueName kNikonToningEffectNames[] = {
    {128, L"白黒"},
    {129, L"セピア調"},
    {130, L"青写真"},
    {131, L"赤"},
    {132, L"黄"},
    {133, L"緑"},
    {134, L"青緑"},
    {135, L"青"},
    {136, L"青紫"},
    {137, L"赤紫"},
};

inline constexpr ValueName kNikonHdrNames[] = {
    {0, L"オフ"},
    {1, L"オン"},
    {48, L"オート"},
};

inline constexpr ValueName kNikonHdrLevelNames[] = {
    {0, L"オート"},
    {1, L"1EV"},
    {2, L"2EV"},
    {3, L"3EV"},
    {255, L"なし"},
};

inline constexpr ValueName kNikonHdrSmoothingNames[] = {
    {0, L"オフ"},
    {1, L"標準"},
    {2, L"弱め"},
    {3, L"強め"},
    {48, L"オート"},
    {255, L"なし"},
};

inline constexpr ValueName kNikonMultiExposureModeNames[] = {
    {0, L"オフ"},
    {1, L"多重露出"},
    {2, L"画像合成"},
    {3, L"HDR"},
};

inline constexpr ValueName kNikonDateStampNames[] = {
    {0, L"オフ"},
    {1, L"日付と時刻"},
    {2, L"日付"},
    {3, L"誕生日カウンター"},
};

inline constexpr ValueName kNikonAfTuneNames[] = {
    {0, L"オフ"},
    {1, L"オン1"},
    {2, L"オン2"},
    {3, L"オン（ズーム）"},
};

inline constexpr ValueName kNikonSilentNames[] = {
    {0, L"オフ"},
    {1, L"オン"},
};

inline constexpr ValueName kNikonRetouchHistoryNames[] = {
    {0, L"なし"},
    {3, L"白黒"},
    {4, L"セピア"},
    {5, L"トリミング"},
    {6, L"スモールピクチャー"},
    {7, L"D-ライティング"},
    {8, L"赤目補正"},
    {9, L"ブルー"},
    {10, L"スカイライト"},
    {11, L"ウォームトーン"},
    {12, L"カラーカスタマイズ"},
    {13, L"画像合成"},
    {14, L"レッド強調"},
    {15, L"グリーン強調"},
    {16, L"ブルー強調"},
    {17, L"クロススクリーン"},
    {18, L"簡単レタッチ"},
    {19, L"RAW現像"},
    {23, L"ゆがみ補正"},
    {25, L"魚眼効果"},
    {26, L"傾き補正"},
    {29, L"アオリ効果"},
    {30, L"カラースケッチ（輪郭）"},
    {31, L"ソフト"},
    {32, L"リサイズ"},
    {33, L"ミニチュア効果"},
    {34, L"美肌"},
    {35, L"動画静止画切り出し"},
    {37, L"カラースケッチ"},
    {38, L"セレクトカラー"},
    {39, L"メイクアップ効果"},
    {40, L"絵画調"},
    {44, L"ポップ"},
};

// clang-format on

}  // namespace qmx
