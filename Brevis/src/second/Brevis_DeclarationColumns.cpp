// What ends a group: anything but declarations of its kind and labels. Empty lines, comments and directives don't.
#include "second/Brevis_DeclarationColumns.h"

#include <utility>

namespace Brevis {

namespace Kind = Trn::Kind;
using Cpp::OutlineItem;
using Cpp::Role;
using Sort = OutlineItem::Sort;

namespace {

// What stands between declarations and leaves their group alone.
bool isPassedOver(Sort sort) {
    switch (sort) {
        case Sort::AccessLabel:
        case Sort::CaseLabel:
        case Sort::GotoLabel:
        case Sort::Empty:
        case Sort::Template:
        case Sort::Declarators:
        case Sort::Assembler:
            return true;
        default:
            return false;
    }
}

}  // namespace

DeclarationColumns::DeclarationColumns(const GapText& text, const Scheme& scheme, GapTable& gaps,
                                       std::vector<LaidPlace> places)
    : text_(text),
      scheme_(scheme),
      gaps_(gaps),
      places_(std::move(places)),
      data_(gaps, ruleOf<&Scheme::alignDdNamesLeft>(), scheme.tabSize),
      functions_(gaps, ruleOf<&Scheme::alignFnDeclNamesLeft>(), scheme.tabSize),
      members_(gaps, ruleOf<&Scheme::alignClassMemberNamesLeft>(), scheme.tabSize),
      values_(gaps, ruleOf<&Scheme::alignDdInitializers>(), scheme.tabSize) {}

void DeclarationColumns::alignNames() {
    for (const OutlineItem& item : text_.items()) {
        leaveBodies(item.first);
        readName(item);
    }
    close();
}

void DeclarationColumns::alignValues() {
    for (const OutlineItem& item : text_.items()) {
        leaveBodies(item.first);
        if (scheme_.alignDdInitializers) readValue(item);
        if (scheme_.alignEnumInitializers && item.sort == Sort::Enum && item.body != 0) alignEnumerators(item.body);
    }
    close();
}

// A group ends with the body that it stands in.
void DeclarationColumns::leaveBodies(TokenIndex token) {
    while (!bodies_.empty() && bodies_.back() < token) {
        bodies_.pop_back();
        close();
    }
}

void DeclarationColumns::close() {
    data_.close();
    functions_.close();
    members_.close();
    values_.close();
}

// ---- Names

void DeclarationColumns::readName(const OutlineItem& item) {
    if (isPassedOver(item.sort)) return;
    const bool isMember = item.frame == Cpp::Frame::Class && scheme_.alignClassMemberNamesLeft;
    if (item.sort == Sort::Data) {
        if (isMember || scheme_.alignDdNamesLeft) addName(item, isMember ? members_ : data_);
        return;
    }
    if (item.sort == Sort::Function && item.body == 0 && (isMember || scheme_.alignFnDeclNamesLeft)) {
        return addName(item, isMember ? members_ : functions_);
    }
    close();
    if (item.last > item.first) bodies_.push_back(item.last);
}

// What has no type, has its name on another line or in a bracket, or holds a comment stays as it is.
void DeclarationColumns::addName(const OutlineItem& item, ColumnGroup& group) {
    if (item.nameFirst <= item.first || !isOnLine(item.first, item.nameFirst)) return;
    TokenIndex first = item.nameFirst;
    while (first > item.first && isJoined(first) && isPointerSign(text_.role(first - 1))) --first;
    const bool isInBracket =
        text_.role(first) == Role::DeclaratorGroup || text_.role(first - 1) == Role::DeclaratorGroup;
    if (first == item.first || isInBracket) return;
    const int signs = places_[item.nameFirst].column - places_[first].column;
    group.add(first, places_[first].gap + 1, first < item.nameFirst && hangs(item.nameFirst - 1) ? signs : 0);
}

bool DeclarationColumns::hangs(TokenIndex sign) const {
    return text_.role(sign) == Role::Reference ? scheme_.hangingAmpersand : scheme_.hangingAsterisk;
}

// Whether `first` begins a line on which the token stands too, with nothing but code in between.
bool DeclarationColumns::isOnLine(TokenIndex first, TokenIndex token) const {
    if (!gaps_.startsLine(first) || places_[first].line != places_[token].line) return false;
    for (TokenIndex at = first; at <= token; ++at) {
        if (text_.isTrivia(at) || gaps_[at].sort == Gap::Sort::Fixed) return false;
    }
    return true;
}

// ---- Values

void DeclarationColumns::readValue(const OutlineItem& item) {
    if (isPassedOver(item.sort) && item.sort != Sort::AccessLabel) return;
    if (item.sort != Sort::Data) {
        values_.close();
        if (item.last > item.first) bodies_.push_back(item.last);
        return;
    }
    const TokenIndex value = item.initializer;
    if (value == 0 || text_.kind(value) != Kind::Assign || !isOnLine(item.first, value)) return;
    values_.add(value, places_[value].gap + 1);
}

// Only if each of them has a line of its own.
void DeclarationColumns::alignEnumerators(TokenIndex body) {
    ColumnGroup group(gaps_, ruleOf<&Scheme::alignEnumInitializers>(), scheme_.tabSize);
    const TokenIndex last = text_.partner(body);
    std::uint32_t line = places_[body].line;
    TokenIndex first = 0;
    std::size_t enumerators = 0;
    for (TokenIndex at = text_.next(body); at < last; at = text_.next(at)) {
        if (text_.kind(at) == Kind::Comma) {
            first = 0;
            continue;
        }
        if (first == 0) {
            first = at;
            if (enumerators++ > 0 && places_[at].line == line) return;
            line = places_[at].line;
        } else if (text_.kind(at) == Kind::Assign && isOnLine(first, at)) {
            group.add(at, places_[at].gap + 1);
        }
        if (text_.isOpening(at)) at = text_.partner(at);
    }
    if (enumerators > 1) group.close();
}

}  // namespace Brevis
