// A stack of the conditional directives that are open, each with the balance of its branches.
#include "Cpp_BranchChoice.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "Cpp_CharClasses.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::TokenIndex;
using Trn::TokenKind;
using Stretch = Trn::TokenBuffer::Stretch;

namespace {

// The word behind the `#`.
std::string_view nameOf(std::string_view directive) {
    directive.remove_prefix(directive.starts_with('%') ? 2 : 1);
    while (!directive.empty() && (directive.front() == ' ' || directive.front() == '\t')) directive.remove_prefix(1);
    std::size_t length = 0;
    while (length < directive.size() && isAny(directive[length], CharClass::word)) ++length;
    return directive.substr(0, length);
}

bool isNever(std::string_view directive) {
    const std::size_t name = directive.find("if");
    return trimmed(directive.substr(name + 2)) == "0";
}

// How far brackets have been opened, and how far below the start closed, from one place to another.
struct Balance {
    int depth = 0;
    int lowest = 0;

    void step(int change) {
        depth += change;
        lowest = std::min(lowest, depth);
    }
    void add(const Balance& other) {
        lowest = std::min(lowest, depth + other.lowest);
        depth += other.depth;
    }
    bool isEven() const { return depth == 0 && lowest == 0; }
};

struct Branch {
    TokenIndex directive = 0;  // in front of it
    Balance balance{};
    TokenKind lastKind = Kind::EndOfInput;  // of its last token that is no trivia
    int semicolons = 0;
};

struct Group {
    bool isNever;
    bool isInside;  // of an item that began in front of it
    std::vector<Branch> branches;

    // Whether the branches can all stand in one tree.
    bool canAllCount() const {
        if (isInside && endsOneItemInEach()) return false;
        for (const Branch& branch : branches) {
            if (!branch.balance.isEven() || !endsItem(branch.lastKind)) return false;
        }
        return true;
    }
    bool endsOneItemInEach() const {
        return branches.size() > 1 && std::all_of(branches.begin(), branches.end(), [](const Branch& branch) {
            return branch.semicolons == 1 && branch.lastKind == Kind::Semicolon;
        });
    }
    static bool endsItem(TokenKind kind) {
        return kind == Kind::EndOfInput || kind == Kind::Semicolon || kind == Kind::CloseBrace || kind == Kind::Comma ||
               kind == Kind::OpenBrace || kind == Kind::Colon;
    }
};

// Words, literals and operators: only the last one in front of a directive counts.
constexpr bool isQuiet(TokenKind kind) { return kind > Kind::CloseBracket; }
static_assert(!isQuiet(Kind::Directive) && !isQuiet(Kind::Semicolon) && !isQuiet(Kind::OpenParen) &&
              !isQuiet(Kind::CloseParen) && !isQuiet(Kind::OpenBrace) && !isQuiet(Kind::CloseBrace) &&
              !isQuiet(Kind::OpenBracket));

int stepOf(TokenKind kind) {
    switch (kind) {
        case Kind::OpenParen:
        case Kind::OpenBracket:
        case Kind::OpenBrace:
            return 1;
        case Kind::CloseParen:
        case Kind::CloseBracket:
        case Kind::CloseBrace:
            return -1;
        default:
            return 0;
    }
}

// Which branch of a group counts whose branches can't all count.
enum class Preference {
    First,
    Uneven,  // the first that opens or closes brackets around it
    Even,    // the first that doesn't; without one, none of them
};

class BranchChoice {
public:
    BranchChoice(const Trn::TokenBuffer& buffer, Preference preference) : buffer_(buffer), preference_(preference) {
        const auto size = static_cast<TokenIndex>(buffer.size());
        for (TokenIndex token = 1; token < size; ++token) {
            const TokenKind kind = buffer.kind(token);
            if (isQuiet(kind)) continue;
            if (kind == Kind::Directive) {
                noteLastKind(token);
                onDirective(token);
                branch_ = groups_.empty() ? &whole_ : &groups_.back().branches.back();
            } else if (kind == Kind::Semicolon) {
                ++branch_->semicolons;
            } else if (const int step = stepOf(kind); step != 0) {
                branch_->balance.step(step);
            }
        }
    }

    bool isEven() const { return whole_.balance.isEven(); }

    // What doesn't count, in order, without what lies in others.
    std::vector<Stretch> dead() {
        std::sort(dead_.begin(), dead_.end(), [](const Stretch& a, const Stretch& b) {
            return a.first != b.first ? a.first < b.first : a.last > b.last;
        });
        std::vector<Stretch> result;
        for (const Stretch& stretch : dead_) {
            if (result.empty() || stretch.first > result.back().last) result.push_back(stretch);
        }
        return result;
    }

private:
    Branch& branch() { return groups_.empty() ? whole_ : groups_.back().branches.back(); }

    // Of the tokens between this directive and the one in front.
    void noteLastKind(TokenIndex directive) {
        TokenIndex last = directive - 1;
        while (last > 0 && Trn::isComment(buffer_.kind(last))) --last;
        if (last > 0 && buffer_.kind(last) != Kind::Directive) branch_->lastKind = buffer_.kind(last);
    }

    void onDirective(TokenIndex token) {
        const std::string_view text = buffer_.text(token);
        const std::string_view name = nameOf(text);
        if (name == "if" || name == "ifdef" || name == "ifndef") {
            groups_.push_back({name == "if" && isNever(text), !Group::endsItem(branch().lastKind), {{token}}});
        } else if (groups_.empty()) {
            return;
        } else if (name.starts_with("el")) {
            groups_.back().branches.push_back({token});
        } else if (name == "endif") {
            endGroup(token);
        }
    }

    void endGroup(TokenIndex endif) {
        const Group group = std::move(groups_.back());
        groups_.pop_back();
        if (group.isNever) {
            dead_.push_back({group.branches.front().directive, endif});
        } else if (group.canAllCount() || (group.branches.size() == 1 && preference_ != Preference::Even)) {
            count(group.branches.front());
        } else {
            countOne(group, endif);
        }
    }

    void countOne(const Group& group, TokenIndex endif) {
        const std::size_t size = group.branches.size();
        std::size_t chosen = 0;
        while (chosen < size && preference_ != Preference::First &&
               group.branches[chosen].balance.isEven() == (preference_ == Preference::Uneven)) {
            ++chosen;
        }
        if (chosen == size && preference_ == Preference::Uneven) chosen = 0;
        const TokenIndex start = group.branches.front().directive;
        if (chosen == size) return dead_.push_back({start, endif});
        if (chosen > 0) dead_.push_back({start, group.branches[chosen].directive});
        if (chosen + 1 < size) dead_.push_back({group.branches[chosen + 1].directive, endif});
        count(group.branches[chosen]);
    }

    void count(const Branch& counted) {
        branch().balance.add(counted.balance);
        branch().semicolons += counted.semicolons;
        if (counted.lastKind != Kind::EndOfInput) branch().lastKind = counted.lastKind;
    }

    const Trn::TokenBuffer& buffer_;
    Preference preference_;
    Branch whole_{};
    Branch* branch_ = &whole_;  // that of the token at hand
    std::vector<Group> groups_;
    std::vector<Stretch> dead_;
};

}  // namespace

void chooseBranches(Trn::TokenBuffer& buffer) {
    using enum Preference;
    std::vector<Stretch> dead;
    // The last one is for a text that no choice balances.
    for (const Preference preference : {First, Uneven, Even, First}) {
        BranchChoice choice(buffer, preference);
        dead = choice.dead();
        if (choice.isEven()) break;
    }
    buffer.merge(dead, Kind::Directive);
}

}  // namespace Cpp
