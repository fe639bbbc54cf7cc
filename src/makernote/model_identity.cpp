#include "makernote/model_identity.h"

#include "makernote/model_rules.h"
#include "parse/core/cursor.h"

namespace qmx {
namespace {

// What trying the longest list of rules costs, in bytes of directories.
constexpr std::uint32_t kSearchWork = 256;

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// A failed match goes back to the last star only, so the work is bounded by the product of the two
// short lengths.
bool MatchPattern(std::string_view pattern, std::string_view text) {
    std::size_t p = 0;
    std::size_t star = std::string_view::npos;
    std::size_t resume = 0;
    for (std::size_t t = 0; t < text.size();) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            resume = t;
        } else if (p < pattern.size() &&
                   (pattern[p] == text[t] || (pattern[p] == '#' && IsDigit(text[t])))) {
            ++p;
            ++t;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            t = ++resume;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*') ++p;
    return p == pattern.size();
}

// Pentax cameras under another maker's name: Samsung's "SAMSUNG GX10" and the like, and since 2013
// the ones that Ricoh makes, whose model still begins with the old name.
bool IsPentax(const ImageInfo& info) {
    constexpr std::size_t kNameLength = 8;  // "SAMSUNG "
    const std::string_view model = FieldText(info.cameraModel);
    if (info.makerId == kMakerRicoh) return model.starts_with("PENTAX");
    return info.makerId == kMakerSamsung && model.size() > kNameLength &&
           model.substr(kNameLength).starts_with("GX");
}

// Makers that write their own name in front of some models.
std::string_view DropMakerName(std::string_view model, std::uint32_t maker) {
    constexpr std::string_view kCanon = "Canon ";
    constexpr std::string_view kLeica = "LEICA ";
    if (maker == kMakerCanon && model.starts_with(kCanon)) model.remove_prefix(kCanon.size());
    if (maker == kMakerLeica && model.starts_with(kLeica)) model.remove_prefix(kLeica.size());
    return model;
}

}  // namespace

bool ModelRule::MatchesPattern(std::string_view model) const {
    return MatchPattern(key_.View(), model);
}

void IdentifyModel(ParseContext& ctx) {
    ImageInfo& info = ctx.info;
    if (IsPentax(info)) info.makerId = kMakerPentax;
    info.modelId = 0;
    const auto rules = ModelRulesFor(static_cast<MakerId>(info.makerId));
    if (rules.empty()) return;
    SpendWork(ctx, kSearchWork);
    const ModelKey<sizeof info.cameraModel> model(
        DropMakerName(FieldText(info.cameraModel), info.makerId));
    for (const ModelRule& rule : rules) {
        if (!rule.Matches(model.View())) continue;
        info.modelId = rule.modelId();
        return;
    }
}

}  // namespace qmx
