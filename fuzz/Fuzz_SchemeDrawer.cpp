// The values of drawn schemes, type by type.
#include "Fuzz_SchemeDrawer.h"

#include <algorithm>
#include <iterator>
#include <limits>
#include <string>

#include "scheme/Brevis_PropertyCatalogue.h"

namespace Fuzz {

namespace {

using Brevis::PropertyInfo;
using Brevis::PropertyType;
using Brevis::Scheme;
using Brevis::Catalogue::keyOf;

enum class Temper { Sane, Mixed, Wild };

constexpr std::string_view saneGaps[] = {" ", "\n", "", " ", "\n", "\n\n", "\n    "};
constexpr std::string_view saneIndents[] = {"    ", "", "\t", "  ", "        "};
constexpr std::string_view wildStrings[] = {"",     " ",    "\n",   "\t",     "  ",     "\n\n",   " \n", "\n ",
                                            "\t\n", "\n\t", " \t ", "\n \n ", "\t \t ", "\n\n\n", " \n\t\n "};
// A scheme file can hold these, and nobody would write them.
constexpr std::string_view oddStrings[] = {"\v", "\r", "\f", "\r\n", " \v\n", "\n\r "};
constexpr std::int32_t hugeNumbers[] = {1000, 1 << 20, std::numeric_limits<std::int32_t>::max(),
                                        std::numeric_limits<std::int32_t>::min()};

template <class Table>
auto anyOf(Draws& draws, const Table& table) {
    return table[draws.below(static_cast<unsigned>(std::size(table)))];
}

bool isOffSwitch(std::string_view key) { return key.ends_with("DO_NOT_FORMAT"); }

class SchemeDrawer {
public:
    explicit SchemeDrawer(Draws& draws) : draws_(draws), temper_(Temper{static_cast<int>(draws.below(3))}) {}

    Brevis::PropertySet draw() {
        const bool wraps = draws_.below(2) != 0;
        const auto margin = static_cast<std::int32_t>(1 + draws_.below(200));
        drawValues(1);
        scheme_.setBool(keyOf(&Scheme::lineWrap), wraps);
        if (wraps) scheme_.setInt(keyOf(&Scheme::rightMargin), margin);
        return std::move(scheme_);
    }

    Brevis::PropertySet drawSecond() {
        drawValues(1);
        drawValues(2);
        scheme_.setInt(keyOf(&Scheme::edition), 2);
        scheme_.setBool(keyOf(&Scheme::lineWrap), false);
        return std::move(scheme_);
    }

private:
    // The keys of the second edition take no draws of a scheme of the first, so that an input that was found once
    // stands for the same scheme.
    void drawValues(std::int32_t edition) {
        for (const PropertyInfo& info : Brevis::Catalogue::properties) {
            if (info.edition == edition) drawValue(info);
        }
    }

    // An eighth of the keys is absent in a sane draw, a quarter in others.
    void drawValue(const PropertyInfo& info) {
        const unsigned choice = draws_.below(8);
        if (choice == 0 || (choice == 1 && temper_ != Temper::Sane)) return;
        const bool isSane = temper_ == Temper::Sane || (temper_ == Temper::Mixed && choice < 6);
        switch (info.type) {
            case PropertyType::Flag:
                scheme_.setBool(info.key, drawFlag(info.key, isSane));
                break;
            case PropertyType::Number:
            case PropertyType::Choice:
                scheme_.setInt(info.key, isSane ? saneNumber(info) : wildNumber(info));
                break;
            case PropertyType::WhiteSpace:
                scheme_.setString(info.key, isSane ? std::string(anyOf(draws_, saneGaps)) : wildString());
                break;
            case PropertyType::Indent:
                scheme_.setString(info.key, isSane ? std::string(anyOf(draws_, saneIndents)) : wildString());
                break;
            case PropertyType::Text:
            case PropertyType::Names:
                break;
        }
    }

    bool drawFlag(std::string_view key, bool isSane) {
        return isSane && isOffSwitch(key) ? draws_.below(16) == 15 : draws_.below(2) != 0;
    }

    std::int32_t saneNumber(const PropertyInfo& info) {
        if (info.key == keyOf(&Scheme::tabSize)) return 1 << draws_.below(4);
        if (info.key == keyOf(&Scheme::rightMargin)) return static_cast<std::int32_t>(40 + draws_.below(100));
        return std::max(-1, info.defaultNumber - 1 + static_cast<std::int32_t>(draws_.below(3)));
    }

    // Tabs as wide as the engine takes them, in a value of hundreds, would make a text that is right and takes minutes.
    std::int32_t wildNumber(const PropertyInfo& info) {
        const unsigned number = draws_.below(64);
        if (number >= 60) {
            const bool isWide = info.key == keyOf(&Scheme::tabSize);
            return isWide ? std::min(hugeNumbers[number - 60], 100) : hugeNumbers[number - 60];
        }
        const unsigned range = info.type == PropertyType::Choice ? 6 : 20;
        return static_cast<std::int32_t>(number % range) - 2;
    }

    std::string wildString() {
        const unsigned number = draws_.below(32);
        if (number == 31) return std::string(anyOf(draws_, oddStrings));
        if (number == 30) return std::string(1 + draws_.below(200), " \t\n"[draws_.below(3)]);
        return std::string(wildStrings[number % std::size(wildStrings)]);
    }

    Draws& draws_;
    Temper temper_;
    Brevis::PropertySet scheme_{"drawn"};
};

}  // namespace

Brevis::PropertySet drawScheme(Draws& draws) { return SchemeDrawer(draws).draw(); }

Brevis::PropertySet drawSecondScheme(Draws& draws) { return SchemeDrawer(draws).drawSecond(); }

Brevis::PropertySet drawMixedScheme(Draws& draws, std::span<const Brevis::PropertySet> schemes) {
    Brevis::PropertySet mixed("mixed");
    for (const PropertyInfo& info : Brevis::Catalogue::properties) {
        const Brevis::PropertySet& from = schemes[draws.below(static_cast<unsigned>(schemes.size()))];
        bool flag = false;
        std::int32_t number = 0;
        std::string text;
        if (from.getBool(info.key, flag)) mixed.setBool(info.key, flag);
        if (from.getInt(info.key, number)) mixed.setInt(info.key, number);
        if (from.getString(info.key, text)) mixed.setString(info.key, text);
    }
    return mixed;
}

}  // namespace Fuzz
