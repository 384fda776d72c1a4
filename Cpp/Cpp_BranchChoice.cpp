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

namespace {

// The word behind the `#`.
std::string_view nameOf(std::string_view directive) {
    directive.remove_prefix(1);
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
    TokenIndex directive;  // in front of it
    Balance balance{};
    TokenKind lastKind = Kind::EndOfInput;  // of its last token that is no trivia
};

struct Group {
    bool isNever;
    std::vector<Branch> branches;

    // Whether the branches can all stand in one tree.
    bool canAllCount() const {
        for (const Branch& branch : branches) {
            if (!branch.balance.isEven() || !endsItem(branch.lastKind)) return false;
        }
        return true;
    }
    static bool endsItem(TokenKind kind) {
        return kind == Kind::EndOfInput || kind == Kind::Semicolon || kind == Kind::CloseBrace || kind == Kind::Comma ||
               kind == Kind::OpenBrace || kind == Kind::Colon;
    }
};

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

class BranchChoice {
public:
    explicit BranchChoice(Trn::TokenBuffer& buffer) : buffer_(buffer) {}

    void run() {
        for (TokenIndex token = 1; token < buffer_.size(); ++token) {
            const TokenKind kind = buffer_.kind(token);
            if (kind == Kind::Directive)
                onDirective(token);
            else if (!groups_.empty() && !Trn::isComment(kind))
                onToken(kind);
        }
        buffer_.merge(outermost(), Kind::Directive);
    }

private:
    void onToken(TokenKind kind) {
        Branch& branch = groups_.back().branches.back();
        branch.balance.step(stepOf(kind));
        branch.lastKind = kind;
    }

    void onDirective(TokenIndex token) {
        const std::string_view text = buffer_.text(token);
        const std::string_view name = nameOf(text);
        if (name == "if" || name == "ifdef" || name == "ifndef") {
            groups_.push_back({name == "if" && isNever(text), {{token}}});
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
        const Branch& first = group.branches.front();
        Branch counted = first;
        if (group.isNever) {
            dead_.push_back({first.directive, endif});
            counted = {};
        } else if (group.branches.size() > 1 && !group.canAllCount()) {
            dead_.push_back({group.branches[1].directive, endif});
        }
        if (groups_.empty()) return;
        Branch& outer = groups_.back().branches.back();
        outer.balance.add(counted.balance);
        if (counted.lastKind != Kind::EndOfInput) outer.lastKind = counted.lastKind;
    }

    // Without those that lie in others, in order.
    std::vector<Trn::TokenBuffer::Stretch> outermost() {
        std::sort(dead_.begin(), dead_.end(), [](const auto& a, const auto& b) {
            return a.first != b.first ? a.first < b.first : a.last > b.last;
        });
        std::vector<Trn::TokenBuffer::Stretch> result;
        for (const auto& stretch : dead_) {
            if (result.empty() || stretch.first > result.back().last) result.push_back(stretch);
        }
        return result;
    }

    Trn::TokenBuffer& buffer_;
    std::vector<Group> groups_;
    std::vector<Trn::TokenBuffer::Stretch> dead_;
};

}  // namespace

void chooseBranches(Trn::TokenBuffer& buffer) { BranchChoice(buffer).run(); }

}  // namespace Cpp
