#include "wrap/Brevis_FindFirstCast.h"

namespace Brevis {

using namespace Trn::Kind;

std::size_t FindFirstCast::find(const LexedText& text, std::size_t from) {
    int paren = 0;
    int bracket = 0;
    int angle = 0;
    for (std::size_t i = from; text.isWalked(i); ++i) {
        switch (text[i].kind) {
            case OpenParen:
                ++paren;
                break;
            case CloseParen:
                --paren;
                break;
            case OpenBracket:
                ++bracket;
                break;
            case CloseBracket:
                --bracket;
                break;
            case Less:
                if (angle > 0) ++angle;
                break;
            case Greater:
                if (angle > 0 && --angle == 0 && paren == 0 && bracket == 0) return i;
                break;
            case StaticCast:
            case DynamicCast:
            case ConstCast:
            case ReinterpretCast:
                if (paren != 0 || bracket != 0) break;
                do ++i;
                while (text.isWalked(i) && text[i].kind != Less);
                ++angle;
                break;
            default:
                break;
        }
    }
    return text.count();
}

}  // namespace Brevis
