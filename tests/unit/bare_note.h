#pragma once
// A MakerNote alone in memory, for any model number and any bytes: a lead, the maker's header, a
// directory.  And what photos with one deliver.

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string_view>

#include "makernote/maker_record.h"
#include "parse/core/image_info.h"
#include "support/tiff_builder.h"

namespace qmx::test {

class BareNote {
public:
    // Offsets count from 8 bytes before the directory, or 6 more for each of `lead`.
    BareNote(MakerId maker, std::string_view header, std::int32_t modelId = 0,
             Order order = Order::kLittle, std::size_t lead = 0,
             std::optional<Order> fileOrder = {});  // when it is not the note's

    static constexpr std::size_t kPosition = 16;  // of the note in the bytes

    IfdBuilder& Entries() { return entries_; }
    IfdBuilder& Directory(std::uint16_t tag);  // one more, to which the tag leads

    ImageInfo before;  // what the file's directories said

    Bytes Build();

    // What the maker's decoder makes of it; fails when byte order and base are not as before.
    ImageInfo Decode() { return Decode(Build()); }
    ImageInfo Decode(const Bytes& bytes) const;

    // Cuts the note at every byte, alters each of them, and states wrong numbers of entries:
    // nothing but the record may be written.
    void ExpectHarmless(std::size_t recordSize);

private:
    void ExpectOnlyRecord(const Bytes& bytes, std::size_t recordSize) const;

    MakerId maker_;
    std::string_view header_;
    std::int32_t modelId_;
    Order order_;
    Order fileOrder_;
    std::size_t dropped_;  // bytes of the builder's file that the header replaces
    TiffBuilder tiff_;
    IfdBuilder& entries_;
};

// Whether the maker area holds this record, byte for byte.
template <class Fields>
testing::AssertionResult HoldsRecord(const ImageInfo& info, const Fields& expected) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(&expected);
    const auto differs = std::mismatch(bytes, bytes + sizeof expected, info.makerFields).first;
    if (differs == bytes + sizeof expected) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "records differ at byte " << differs - bytes;
}

// The smallest picture that the file delivers, or the largest; nothing when it has none.
Bytes DeliveredBytes(const Bytes& file, bool wantPrimary = false);

// Photos that end with a picture's bytes and tell where and how long it is: delivered as `jpeg`
// from there, but from nowhere else and never longer than the file.
void ExpectPreview(const Bytes& jpeg,
                   const std::function<Bytes(std::uint32_t offset, std::uint32_t length)>& photo);

}  // namespace qmx::test
