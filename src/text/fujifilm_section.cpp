// Fujifilm's part of the texts.  The fields carry the tags' public names, as the tag lists at
// exiftool.org/TagNames/FujiFilm.html and exiv2.org/tags-fujifilm.html give them; of the fields
// still named by tag, 0x1210 is the colour mode and 0x4005 the area of a face.

#include "makernote/fujifilm_fields.h"
#include "makernote/maker_record.h"
#include "text/lens_text.h"
#include "text/maker_sections.h"
#include "text/text_row.h"

namespace qmx {
namespace {

using Fields = FujifilmMakerFields;

// One row per line, to be proof-read.
// clang-format off

constexpr ValueName kPictureModes[] = {
    {0, L"オート"},
    {1, L"ポートレート"},
    {2, L"風景"},
    {4, L"スポーツ"},
    {5, L"夜景"},
    {6, L"プログラムオート"},
    {7, L"ナチュラルフォト"},
    {8, L"ブレ軽減"},
    {10, L"夕焼け"},
    {11, L"美術館"},
    {12, L"パーティー"},
    {13, L"花の接写"},
    {14, L"文字の撮影"},
    {15, L"高感度2枚撮り"},
    {16, L"ビーチ"},
    {17, L"スノー"},
    {18, L"花火"},
    {19, L"水中"},
    {256, L"絞り優先AE"},
    {512, L"シャッター速度優先AE"},
    {768, L"マニュアル"},
};

constexpr ValueName kWhiteBalances[] = {
    {0, L"オート"},
    {256, L"晴天"},
    {512, L"日陰"},
    {768, L"蛍光灯1（昼光色）"},
    {769, L"蛍光灯2（昼白色）"},
    {770, L"蛍光灯3（白色）"},
    {771, L"蛍光灯4（温白色）"},
    {772, L"蛍光灯5（電球色）"},
    {1024, L"白熱灯"},
    {3840, L"カスタム"},
    {3841, L"カスタム2"},
    {3842, L"カスタム3"},
    {3843, L"カスタム4"},
    {3844, L"カスタム5"},
    {4080, L"ケルビン"},
};

constexpr ValueName kLevels[] = {
    {0, L"標準"},
    {256, L"高い"},
    {512, L"低い"},
    {768, L"低い"},  // Deliberate: the second code of the same level.
    {32768, L"フィルムシミュレーション"},
};

constexpr ValueName kSaturations[] = {
    {0, L"STD"},
    {128, L"MEDIUM HIGH"},
    {256, L"HIGH"},
    {384, L"MEDIUM LOW"},
    {512, L"LOW"},
    {768, L"B/W"},
    {32768, L"フィルムシミュレーション"},
};

constexpr ValueName kTones[] = {
    {0, L"STD"},
    {128, L"MEDIUM HIGH"},
    {256, L"HIGH"},
    {384, L"MEDIUM LOW"},
    {512, L"LOW"},
    {32768, L"フィルムシミュレーション"},
};

constexpr ValueName kSharpnesses[] = {
    {0, nullptr},  // Deliberate: a known code that shows an empty value.
    {1, L"ソフト"},
    {2, L"ソフト2"},
    {3, L"標準"},
    {4, L"ハード"},
    {5, L"ハード2"},
    {130, L"ややソフト"},
    {132, L"ややハード"},
    {32768, L"フィルムシミュレーション"},
};

constexpr ValueName kNoiseReductions[] = {
    {64, L"低い"},
    {128, L"ノーマル"},
};

constexpr ValueName kFlashModes[] = {
    {0, L"オート"},
    {1, L"強制発光"},
    {2, L"発光禁止"},
    {3, L"赤目緩和"},
    {4, L"外部ストロボ"},
};

constexpr ValueName kSwitch[] = {
    {0, L"オフ"},
    {1, L"オン"},
};

constexpr ValueName kFocusModes[] = {
    {0, L"オートフォーカス"},
    {1, L"マニュアルフォーカス"},
};

constexpr ValueName kContinuousModes[] = {
    {0, L"オフ"},
    {1, L"オン"},
    {2, L"エンドレス連射"},
    {3, L"サイクル連射"},
};

constexpr ValueName kColorModes[] = {
    {0, L"F-スタンダード"},
    {16, L"F-クローム"},
    {48, L"F-モノクロ"},
};

constexpr const wchar_t* kWarnings[] = {L"なし", L"あり"};

constexpr ValueName kDynamicRanges[] = {
    {1, L"スタンダード"},
    {3, L"ワイド"},
};

constexpr ValueName kDynamicRangeSettings[] = {
    {0, L"オート (100-400%)"},
    {1, L"RAW"},
    {256, L"標準 (100%)"},
    {512, L"ワイド1 (230%)"},
    {513, L"ワイド2 (400%)"},
    {32768, L"フィルムシミュレーション"},
};

constexpr ValueName kFilmBrands[] = {
    {0, L"PROVIA"},
    {256, L"PORTRAIT"},
    {288, L"ASTIA"},
    {304, L"PORTRAIT"},
    {512, L"Velvia"},
    {768, L"ASTIA"},
};

constexpr ValueName kFilmNumbers[] = {
    {0, L"スタンダード"},
    {256, L"F1"},
    {272, L"F1a"},
    {288, L"F1b"},
    {304, L"F1c"},
    {512, L"F2"},
    {768, L"F3"},
    {1024, L"F4"},
};

constexpr ValueName kFilmKinds[] = {
    {0, L"STD/なし"},
    {256, L"ポートレート"},
    {512, L"フジクローム"},
    {768, L"スタジオポートレート"},
    {1024, L"ベルビア"},
};

// clang-format on

constexpr wchar_t kKelvin[] = L"K";
constexpr wchar_t kNoSuffix[] = L"";

// A sign even at 0.
void AppendShift(TextBuffer& dst, std::int32_t shift) {
    const std::int64_t wide = shift;
    dst.Append(wide < 0 ? L'-' : L'+');
    dst.AppendUnsigned(static_cast<std::uint64_t>(wide < 0 ? -wide : wide));
}

bool FormatWhiteBalance(const Fields& fields, TextBuffer& dst) {
    if (!IsSet(fields.fujiWhiteBalance)) return false;
    LookupValueName(dst, fields.fujiWhiteBalance, kWhiteBalances);
    const std::int32_t red = fields.fujiWbFineTune1;
    const std::int32_t blue = fields.fujiWbFineTune2;
    if (!IsSet(red) || (red == 0 && blue == 0)) return true;
    AppendShift(dst.Append(L" ( 赤"), red);
    AppendShift(dst.Append(L", 青"), blue);
    dst.Append(L" )");
    return true;
}

// Only while the camera shoots in a sequence.
bool FormatSequenceNumber(const Fields& fields, TextBuffer& dst) {
    if (!IsSet(fields.fujiAutoBracketing) || fields.fujiAutoBracketing <= 0) return false;
    return Formatted<&Fields::fujiSequenceNumber, FormatInteger, kNoSuffix>(fields, dst);
}

bool FormatDynamicRange(const Fields& fields, TextBuffer& dst) {
    if (!IsSet(fields.fujiDynamicRange)) return false;
    LookupValueName(dst, fields.fujiDynamicRange, kDynamicRanges);
    if (!IsSet(fields.fujiDevelopmentDynamicRange)) return true;
    dst.Append(L" (").AppendInteger(fields.fujiDevelopmentDynamicRange).Append(L"%)");
    return true;
}

bool HasFocalLengths(const Fields& fields) {
    return IsSet(fields.fujiMinFocalLength) && IsSet(fields.fujiMaxFocalLength);
}

bool FormatLensInfo(const Fields& fields, TextBuffer& dst) {
    if (!HasFocalLengths(fields)) return false;
    // Deliberate: one aperture stands for both ends of the zoom.
    const float aperture = fields.fujiMaxApertureAtMinFocal;
    FormatLensRange(dst, fields.fujiMinFocalLength, fields.fujiMaxFocalLength, aperture, aperture);
    return true;
}

bool FormatFaceArea(const Fields& fields, TextBuffer& dst) {
    const auto& [left, top, right, bottom] = fields.fujiTag4005;
    if (!IsSet(left)) return false;
    dst.Append(L'(').AppendInteger(left).Append(L',').AppendInteger(top).Append(L")-(");
    dst.AppendInteger(right).Append(L',').AppendInteger(bottom).Append(L')');
    return true;
}

// Three names depend on the model.
template <const auto& Saturations, const auto& Tones, const auto& Films>
constexpr TextRow<Fields> kItems[] = {
    {L"バージョン", Widened<&Fields::fujiVersion, 256>},
    {L"画質モード", Widened<&Fields::fujiQuality, 256>},
    {L"撮影モード", Named<&Fields::fujiPictureMode, kPictureModes>},
    {L"ホワイトバランス", FormatWhiteBalance},
    {L"色の濃さ", Named<&Fields::fujiSaturation, Saturations>},
    {L"色温度", Formatted<&Fields::fujiColorTemperature, FormatInteger, kKelvin>},
    {L"シャープネス", Named<&Fields::fujiSharpness, kSharpnesses>},
    {L"トーン", Named<&Fields::fujiContrast, Tones>},
    {L"コントラスト", Named<&Fields::fujiContrast2, kLevels>},
    {L"ノイズリダクション", Named<&Fields::fujiNoiseReduction, kNoiseReductions>},
    {L"フラッシュモード", Named<&Fields::fujiFlashMode, kFlashModes>},
    {L"フラッシュ光量補正",
     Formatted<&Fields::fujiFlashExposureComp, FormatSignedTenths, kNoSuffix>},
    {L"マクロモード", Named<&Fields::fujiMacro, kSwitch>},
    {L"フォーカスモード", Named<&Fields::fujiFocusMode, kFocusModes>},
    {L"センター固定AF", Named<&Fields::fujiAfMode, kSwitch>},
    {L"フォーカスポイント", Pair<&Fields::fujiFocusPixel1, &Fields::fujiFocusPixel2>},
    {L"スローシンクロ", Named<&Fields::fujiSlowSync, kSwitch>},
    {L"連写・自動ブラケットモード", Named<&Fields::fujiAutoBracketing, kContinuousModes>},
    {L"連続撮影時の連番", FormatSequenceNumber},
    {L"FinePixカラー", Named<&Fields::fujiTag1210, kColorModes>},
    {L"手振れ警告", Indexed<&Fields::fujiBlurWarning, kWarnings>},
    {L"フォーカス警告", Indexed<&Fields::fujiFocusWarning, kWarnings>},
    {L"AE警告", Indexed<&Fields::fujiExposureWarning, kWarnings>},
    {L"D-レンジ", FormatDynamicRange},
    {L"D-レンジ モード", Named<&Fields::fujiDynamicRangeSetting, kDynamicRangeSettings>},
    {L"フィルムシミュレーション", Named<&Fields::fujiFilmMode, Films>},
    {L"レンズ情報", FormatLensInfo},
    {L"顔検出位置", FormatFaceArea},
};

// Models as numbered in makernote/model_rules.cpp.
constexpr std::int32_t kExrCompact = 257;
constexpr std::int32_t kS100Fs = 4103;
constexpr std::int32_t kFirstWithToneWords = 8193;
constexpr std::int32_t kS5Pro = 8195;

}  // namespace

void EmitFujifilmSection(const ImageInfo& info, const EnumContext& context) {
    const Fields& fields = MakerRecord<Fields>(info);
    const std::int32_t model = info.modelId;
    if (model == kExrCompact || model == kS100Fs) {
        EmitRows(fields, kItems<kLevels, kLevels, kFilmBrands>, context);
    } else if (model == kS5Pro) {
        EmitRows(fields, kItems<kSaturations, kTones, kFilmNumbers>, context);
    } else if (model < kFirstWithToneWords) {
        EmitRows(fields, kItems<kLevels, kLevels, kFilmKinds>, context);
    } else {
        EmitRows(fields, kItems<kSaturations, kTones, kFilmKinds>, context);
    }
}

bool AppendFujifilmLens(const ImageInfo& info, TextBuffer& dst) {
    const Fields& fields = MakerRecord<Fields>(info);
    if (!HasFocalLengths(fields)) return false;
    FormatLensRange(dst, fields.fujiMinFocalLength, fields.fujiMaxFocalLength,
                    fields.fujiMaxApertureAtMinFocal, fields.fujiMaxApertureAtMaxFocal);
    return true;
}

bool AppendFujifilmWhiteBalance(const ImageInfo& info, TextBuffer& dst) {
    return Named<&Fields::fujiWhiteBalance, kWhiteBalances>(MakerRecord<Fields>(info), dst);
}

}  // namespace qmx
