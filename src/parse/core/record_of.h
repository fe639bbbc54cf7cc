#pragma once
// The record that a member pointer belongs to, for tables whose rows name a member.

namespace qmx {

template <class Member>
struct MemberTraits;
template <class Record, class Value>
struct MemberTraits<Value Record::*> {
    using RecordType = Record;
};
template <auto Field>
using RecordOf = typename MemberTraits<decltype(Field)>::RecordType;

}  // namespace qmx
