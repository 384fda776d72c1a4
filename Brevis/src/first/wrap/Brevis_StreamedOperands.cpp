#include "first/wrap/Brevis_StreamedOperands.h"

#include "first/wrap/Brevis_ColumnFold.h"
#include "first/wrap/Brevis_Ladder.h"

namespace Brevis {

const LexedText& StreamedOperands::lexed() {
    if (!lexed_) lexed_.emplace(text_, tools_.writers.dialect());
    return *lexed_;
}

bool StreamedOperands::overflows() {
    if (!overflows_) {
        overflows_ = Brevis::overflows(text_, place_.column, place_.settings->tabSize, tools_.values.rightMargin);
    }
    return *overflows_;
}

std::string StreamedOperands::wrapped(std::string text, const WrapPlace& place) const {
    StreamedText streamed(std::move(text), place, tools_);
    Ladder(tools_.values, streamed).climb();
    return streamed.take();
}

void StreamedOperands::set(std::string text) {
    if (text == text_) return;
    lexed_.reset();
    overflows_.reset();
    text_ = std::move(text);
}

StreamedOperands::GroupPass::GroupPass(StreamedOperands& operands)
    : operands_(operands),
      lexed_(operands.lexed()),
      rewrites_(!isPlainText(operands.text_, *operands.place_.settings)),
      out_(operands.place_) {}

std::string_view StreamedOperands::GroupPass::take(std::size_t end) {
    const std::string_view stretch = lexed_.text().substr(begin_, end - begin_);
    begin_ = end;
    return stretch;
}

void StreamedOperands::GroupPass::wrapInside(std::size_t open, bool hasName) {
    int nameColumn = 0;
    if (hasName) {
        copy(lexed_[open - 1].begin);
        std::string_view name = take(lexed_[open - 1].end);
        nameColumn = out_.writeFirstChar(name);
        out_.raw(name);
    }
    copy(lexed_[open].end);
    WrapPlace place = hasName ? out_.placeUnder(nameColumn) : out_.place();
    if (place.fold != nullptr) place.fold->fold(place);
    const LexedText::Token& close = lexed_[lexed_.closeOf(open)];
    out_.raw(operands_.wrapped(std::string(take(close.begin)), place));
    checkGrowth(out_.rawSize(), lexed_.text().size());
    copy(close.end);
}

void StreamedOperands::GroupPass::finish() {
    const bool isUntouched = begin_ == 0 && !rewrites_;
    if (isUntouched) return;
    copy(lexed_.text().size());
    operands_.set(out_.takeText());
}

}  // namespace Brevis
