// The steps that the visits of the line wrapper share, its bodies and lists, and its smallest visits.
#include "first/wrap/Brevis_CppLineWrapper.h"

#include <algorithm>

#include "Trn_NestingGuard.h"
#include "first/text/Brevis_NodeTests.h"
#include "first/wrap/Brevis_WrapMeasure.h"

namespace Brevis {

namespace {

const WsProperty blankWs{true, " "};
const WsProperty emptyWs{true, ""};

}  // namespace

CppLineWrapper::CppLineWrapper(const Scheme& scheme, std::string_view text, LeafDialect dialect)
    : scheme_(scheme),
      in_(text, scheme.tabSize),
      out_(scheme.outputSettings()),
      expr_(scheme, dialect),
      exprWrapper_(scheme, dialect) {
    if (scheme.lineWrap && scheme.rightMargin > 0) {
        ITextDocStream cursor(text, scheme.tabSize);
        overlongLineNumbers_ = overlongLines(cursor, scheme.rightMargin);
    }
}

// ---- State

bool CppLineWrapper::isOverlong(const Cpp::SyntaxNode& node) const {
    if (overlongLineNumbers_.empty()) return false;
    const int first = node.firstPosition().line;
    const int last = node.lastPosition().line;
    if (first <= 0 || last <= 0 || first > last) return false;
    const auto line = std::lower_bound(overlongLineNumbers_.begin(), overlongLineNumbers_.end(), first);
    return line != overlongLineNumbers_.end() && *line <= last;
}

int CppLineWrapper::copyFirstCharacter(const Cpp::SyntaxNode& node) {
    copyThroughRaw(in_, out_, node.firstPosition());
    return lastColumn(out_);
}

void CppLineWrapper::writeWrapped(std::string_view wrapped, std::size_t size) {
    wrappedSize_ += wrapped.size();
    unwrappedSize_ += size;
    checkGrowth(wrappedSize_, unwrappedSize_);
    writeRaw(out_, wrapped);
}

void CppLineWrapper::clearTemplate() {
    if (!templatePending_) return;
    templatePending_ = false;
    columnStack_.pop_back();
}

// ---- Bodies

void CppLineWrapper::visit(Cpp::RootNode& root) {
    if (scheme_.lineWrap && isOverlong(root)) {
        const LeadingWsGuard keep(out_, !scheme_.leftMargin.isSet);
        wrapChildren(root, scheme_.leftMargin);
    }
    writeRaw(out_, remainderOf(in_));
}

void CppLineWrapper::wrapChildren(Cpp::InteriorNode& interior, const WsProperty& indentWs) {
    const Trn::NestingGuard nesting(depth_);
    const LeadingWsGuard keep(out_, out_.keepLeadingWs() && !indentWs.isSet);
    const IndentStringGuard indent(out_,
                                   indentWs.isSet ? indentStringFor(out_, topColumn()) + indentWs.text : out_.indent());
    for (auto& child : interior) child->accept(*this);
}

void CppLineWrapper::wrapBracedBody(Cpp::InteriorNode& body, const WsProperty& indentWs) {
    const bool hasChildren = body.childCount() > 0;
    if (hasChildren || body.firstPosition() == body.lastPosition()) {
        if (hasBraces(body)) copyThroughRaw(in_, out_, body.firstPosition());
        if (hasChildren) wrapChildren(body, indentWs);
    }
    copyToEnd(body);
}

void CppLineWrapper::visitBody(Cpp::InteriorNode& body, const WsProperty& indentWs) {
    if (!isOverlong(body)) return copyToEnd(body);
    wrapBracedBody(body, indentWs);
}

// A body's lines indent from where the head's first token stands in the output.
void CppLineWrapper::wrapHeadAndBody(int column, Cpp::SyntaxNode* head, Cpp::SyntaxNode* body) {
    if (head != nullptr) {
        column = copyFirstCharacter(*head);
        head->accept(*this);
    }
    if (body != nullptr) {
        const ColumnPush push(columnStack_, column);
        body->accept(*this);
    }
}

void CppLineWrapper::visit(Cpp::NamespaceDeclNode& node) {
    if (!isOverlong(node)) return copyToEnd(node);
    wrapHeadAndBody(topColumn(), node.head.get(), node.body.get());
}

void CppLineWrapper::visit(Cpp::LinkageBlockNode& node) {
    if (!isOverlong(node)) return copyToEnd(node);
    wrapHeadAndBody(topColumn(), node.head.get(), node.body.get());
}

void CppLineWrapper::visit(Cpp::BlockNode& block) {
    if (!isOverlong(block)) return copyToEnd(block);
    // The width of the indent in force, and not the column of the brace.
    const int column = indentWidth(out_);
    const ColumnPush push(columnStack_, column);
    const IndentStringGuard indent(out_, indentStringFor(out_, column));
    wrapBracedBody(block, scheme_.globalIndentContent);
}

// ---- Lists

void CppLineWrapper::wrapParenList(Cpp::InteriorNode& list, const WsProperty& beforeComma, const WsProperty& between) {
    if (isOverlong(list)) {
        copyThroughRaw(in_, out_, list.firstPosition());
        wrapListItems(list, beforeComma, between, false);
    }
    copyToEnd(list);
}

void CppLineWrapper::wrapListItems(Cpp::InteriorNode& list, const WsProperty& beforeComma, const WsProperty& between,
                                   bool commaAfter) {
    if (list.childCount() == 0) return;
    // A list whose scheme already breaks at every comma has no business being wrapped further.
    const bool isBroken = beforeComma.holdsLineFeed() || between.holdsLineFeed();
    if (isOverlong(list) && !isBroken) {
        wrapListText(list, beforeComma.isSet || between.isSet, commaAfter);
        return;
    }
    for (auto& child : list) copyToEnd(*child);
}

void CppLineWrapper::wrapListText(Cpp::InteriorNode& list, bool isNormalized, bool commaAfter) {
    const IndentStringGuard indent(out_, indentStringFor(out_, topColumn()));
    const IndentStreamSettings settings = out_.settings();
    std::string text;
    for (auto& child : list) text += readThrough(in_, child->lastPosition());
    if (!isNormalized) {
        // Without values of the scheme the text is brought into one shape first.
        text = expr_.formatAround(text, Trn::Kind::Comma, commaAfter ? emptyWs : blankWs, blankWs, settings);
    }
    writeWrapped(exprWrapper_.wrapList(text, settings, false), text.size());
}

// ---- Small visits

void CppLineWrapper::visit(Cpp::ExprNode& node) {
    const std::string text = readToEnd(node);
    if (isOverlong(node)) {
        writeWrapped(exprWrapper_.wrapExpression(text, out_.settings(), false), text.size());
    } else {
        // A short neighbour of a long line is only re-spaced.
        writeRaw(out_, expr_.format(text, out_.settings()));
    }
}

void CppLineWrapper::visit(Cpp::CommentNode& node) {
    if (node.isLineComment()) {
        copyThrough(in_, out_, node.lastPosition());
    } else {
        expr_.writeMultiLine(node.firstPosition(), node.lastPosition(), in_, out_);
    }
}

void CppLineWrapper::visit(Cpp::PreprocDirectiveNode& node) {
    expr_.writeDirective(node.firstPosition(), node.lastPosition(), in_, out_);
}

}  // namespace Brevis
