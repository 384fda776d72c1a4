// The modern dialect: the run over a text and the items of its frames. What an item is, `ShapeScan` tells beforehand,
// so nothing is read twice; what fits no rule becomes a node that is copied as it stands.
#include <utility>

#include "Cpp_BranchChoice.h"
#include "Cpp_Parser.h"
#include "Cpp_ParserWords.h"
#include "Cpp_RoleFinder.h"
#include "Cpp_ShapeWords.h"
#include "Trn_NestingGuard.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Sort = ItemShape::Sort;
using Trn::TokenKind;

// A text is refused only if its brackets don't match.
void Parser::parseModern(Trn::TokenBuffer& buffer, const Lexer& lexer, RootNode& root) {
    chooseBranches(buffer);
    Trn::BracketTable brackets(buffer);
    if (brackets.unmatched() != 0) {
        report(buffer.first(brackets.unmatched()), "This bracket has no partner.");
        return;
    }
    const ShapeScan shapes(buffer, brackets, macros_, findsRoles_ ? lexer.source() : std::string_view());
    source_ = lexer.source();
    buffer_ = &buffer;
    shapes_ = &shapes;
    std::optional<RoleFinder> roles;
    Outline outline;
    if (findsRoles_) {
        outline.expect(buffer.size() / 4);
        roles_ = &roles.emplace(buffer, brackets, shapes, lexer.language());
        outline_ = &outline;
    }
    Stream stream(buffer);
    parseModernItems(stream, root, Frame::File);
    if (roles) {
        std::vector<Role> found = roles->take();  // while the buffer is still in its place
        storage_->keep(TokenTable(std::move(buffer), std::move(found), std::move(brackets), std::move(outline)));
    }
    roles_ = nullptr;
    outline_ = nullptr;
    buffer_ = nullptr;
    shapes_ = nullptr;
}

// Through the `}` that ends the body, or to the end of the text. For a reader of nothing but tokens no more than a few
// nodes of a body are there at a time.
bool Parser::parseModernItems(Stream& stream, InteriorNode& body, Frame frame) {
    constexpr int mostItems = 64;
    const TreeStorage::Mark mark = storage_->mark();
    const auto parseItem = [&] {
        const Step step = parseModernItem(stream, body, frame);
        if (!makesLeaves_ && body.childCount() >= mostItems) {
            body.eraseChildren(body.begin(), body.end());
            storage_->goBackTo(mark);
        }
        return step;
    };
    return repeat(stream, parseItem) != Step::Fail;
}

// This and what it calls stand on the stack once a level of nesting, so the nodes are made in routines of their own,
// whose frames are gone by then.
Parser::Step Parser::parseModernItem(Stream& stream, InteriorNode& body, Frame frame) {
    attachTrivia(stream, body);
    const At first = stream.index();
    const TokenKind kind = buffer_->kind(first);
    switch (kind) {
        case Kind::EndOfInput:
            return Step::Stop;
        case Kind::CloseBrace:
            stream.get();
            body.setLastPosition(buffer_->last(first));
            return Step::Stop;
        case Kind::Semicolon:
            passEmptyItem(stream, frame);
            return Step::GoOn;
        case Kind::OpenBrace:
            if (frame != Frame::File || !addElements(stream, body, frame)) addBlock(stream, body, frame);
            return Step::GoOn;
        default:
            break;
    }
    if (parseFrameItem(stream, body, frame)) return Step::GoOn;
    if (isControlKeyword(kind) && kind != Kind::Else && kind != Kind::Catch) {
        addControlStatement(stream, body, frame);
    } else if (frame != Frame::Block || !parseModernStatement(stream, body)) {
        const bool isStatement = frame == Frame::Block;
        addShape(stream, body, isStatement ? shapes_->statement(first) : shapes_->declaration(first, frame), frame);
    }
    return Step::GoOn;
}

void Parser::passEmptyItem(Stream& stream, Frame frame) {
    const Recorded item(*this, stream, OutlineItem::Sort::Empty, frame);
    stream.get();
}

void Parser::addBlock(Stream& stream, InteriorNode& body, Frame frame) {
    const Recorded item(*this, stream, OutlineItem::Sort::Block, frame);
    body.addChild(parseBlock(stream));
}

// Rows of a table that another file includes: `{ 1, "a" }, { 2, "b" },`. The tree has blocks for them.
bool Parser::addElements(Stream& stream, InteriorNode& body, Frame frame) {
    const At first = stream.index();
    At last = shapes_->partner(first);
    if (!roles_ || shapes_->kind(shapes_->next(last)) != Kind::Comma) return false;
    while (shapes_->kind(shapes_->next(last)) == Kind::Comma) {
        last = shapes_->next(last);
        if (shapes_->kind(shapes_->next(last)) != Kind::OpenBrace) break;
        last = shapes_->partner(shapes_->next(last));
    }
    roles_->elements(first, last);
    const Recorded item(*this, stream, {.sort = Sort::Macro, .first = first, .last = last}, frame);
    RoleFinder* const roles = std::exchange(roles_, nullptr);
    Outline* const outline = std::exchange(outline_, nullptr);
    repeat(stream, [&] { return stream.index() > last ? Step::Stop : parseModernItem(stream, body, frame); });
    roles_ = roles;
    outline_ = outline;
    return true;
}

void Parser::addControlStatement(Stream& stream, InteriorNode& body, Frame frame) {
    const Recorded item(*this, stream, OutlineItem::Sort::Control, frame);
    body.addChild(parseControlStatement(stream));
}

// The items that a word of their own begins. False for any other.
bool Parser::parseFrameItem(Stream& stream, InteriorNode& body, Frame frame) {
    const At first = stream.index();
    switch (shapes_->kind(first)) {
        case Kind::Namespace:
            return parseModernNamespace(stream, body);
        case Kind::Inline:
        case Kind::Export:
            if (shapes_->kind(shapes_->next(first)) == Kind::Namespace) return parseModernNamespace(stream, body);
            if (shapes_->kind(shapes_->next(first)) == Kind::OpenBrace) return parseModernLinkage(stream, body);
            return parseModernModule(stream, body);
        case Kind::Using:
            passUsing(stream, body);
            return true;
        case Kind::Template:
            return parseModernTemplate(stream, body);
        case Kind::Extern:
            return parseModernLinkage(stream, body);
        case Kind::Asm:
            parseModernAsm(stream, body);
            return true;
        case Kind::Identifier:
            if (isAsmWord(shapes_->text(first))) {
                parseModernAsm(stream, body);
                return true;
            }
            if (frame == Frame::File && parseModernModule(stream, body)) return true;
            [[fallthrough]];
        case Kind::Public:
        case Kind::Private:
        case Kind::Protected:
            if (frame == Frame::Block || !shapes_->startsAccessLabel(first)) return false;
            if (frame != Frame::Class && !isAccessKeyword(shapes_->kind(first))) return false;
            parseModernAccessLabel(stream, body);
            return true;
        default:
            return false;
    }
}

// The statements that a word of their own begins.
bool Parser::parseModernStatement(Stream& stream, InteriorNode& body) {
    const At first = stream.index();
    const TokenKind kind = shapes_->kind(first);
    if (kind == Kind::Case || (kind == Kind::Default && shapes_->kind(shapes_->next(first)) == Kind::Colon)) {
        if (shapes_->labelColon(shapes_->next(first)) == 0) return false;
        body.addChild(parseModernCase(stream));
        return true;
    }
    if (shapes_->startsGotoLabel(first)) {
        body.addChild(parseModernLabel(stream));
        return true;
    }
    return false;
}

void Parser::addShape(Stream& stream, InteriorNode& body, const ItemShape& shape, Frame frame) {
    if (roles_) roles_->item(shape, frame);
    const Recorded item(*this, stream, shape, frame);
    switch (shape.sort) {
        case Sort::Class:
            return addClass(stream, body, shape);
        case Sort::Enum:
            return addEnum(stream, body, shape);
        case Sort::Function:
            return addFunction(stream, body, shape);
        case Sort::Data:
            return addData(stream, body, shape);
        case Sort::Macro:
        case Sort::Statement:
            return addExpression(stream, body, shape.first, shape.last);
        case Sort::Head:
            if (outline_) outline_->item(outline_->items().size() - 1).body = shapes_->next(shape.last);
            addExpression(stream, body, shape.first, shape.last);
            return body.addChild(parseBlock(stream));
        case Sort::Loop:
            return body.addChild(macroLoop(stream, shape));
        case Sort::Unread:
            return leaveAlone(stream, body, shape.first, shape.last);
    }
}

// A call with a statement below it is a loop, whose keyword is the whole call.
std::unique_ptr<CtrlStmtNode> Parser::macroLoop(Stream& stream, const ItemShape& shape) {
    const Trn::NestingGuard guard(depth_);
    auto part = make<CtrlSubStmtNode>();
    part->head = make<CtrlSubStmtHeadNode>();
    part->head->keyword =
        make<KeywordNode>(TokenKind{Kind::For}, buffer_->first(shape.first), buffer_->last(shape.last));
    stream.seek(shape.last + 1);
    if (outline_) outline_->item(outline_->items().size() - 1).body = shapes_->next(shape.last);
    part->body = parseBlock(stream);
    auto loop = make<CtrlStmtNode>();
    loop->addChild(std::move(part));
    return loop;
}

// ---- The outline

Parser::Recorded::Recorded(Parser& parser, Stream& stream, OutlineItem::Sort sort, Frame frame)
    : parser_(parser), stream_(stream) {
    if (parser.outline_) number_ = parser.outline_->open(sort, parser.shapes_->next(stream.index() - 1), frame);
}

Parser::Recorded::Recorded(Parser& parser, Stream& stream, const ItemShape& shape, Frame frame)
    : parser_(parser), stream_(stream) {
    if (parser.outline_) number_ = parser.outline_->open(shape, frame);
}

Parser::Recorded::~Recorded() {
    if (!parser_.outline_) return;
    OutlineItem& item = parser_.outline_->item(number_);
    item.last = std::max(item.last, parser_.shapes_->previous(stream_.index()));
}

void Parser::Recorded::setBody(At brace) {
    if (parser_.outline_) parser_.outline_->item(number_).body = brace;
}

void Parser::Recorded::setColon(At colon) {
    if (parser_.outline_) parser_.outline_->item(number_).colon = colon;
}

void Parser::recordTemplateHead(At first, At last) {
    if (!outline_) return;
    OutlineItem& head = outline_->item(outline_->open(OutlineItem::Sort::Template, first));
    head.last = last;
    head.open = shapes_->next(first);
}

// ---- Leaves

std::string_view Parser::sourceText(At first, At last) const {
    const std::string_view front = buffer_->text(first), back = buffer_->text(last);
    const auto isIn = [&](std::string_view text) {
        return text.data() >= source_.data() && text.data() <= source_.data() + source_.size();
    };
    if (isIn(front) && isIn(back)) {
        return {front.data(), static_cast<std::size_t>(back.data() + back.size() - front.data())};
    }
    if (!front.empty()) return front;
    const std::size_t begin = buffer_->begin(first);
    return source_.substr(begin, buffer_->end(last) - begin);
}

void Parser::addExpression(Stream& stream, InteriorNode& body, At first, At last) {
    std::unique_ptr<SyntaxNode> node = heldBodies(stream, first, last);
    if (!node) node = makeLeaf<ExprNode>(first, last);
    body.addChild(std::move(node));
    stream.seek(last + 1);
}

std::unique_ptr<VerbatimNode> Parser::makeVerbatim(At first, At last) {
    auto node = make<VerbatimNode>();
    node->setFirstPosition(buffer_->first(first));
    node->setLastPosition(buffer_->last(last));
    return node;
}

std::unique_ptr<VerbatimNode> Parser::heldBodies(Stream& stream, At first, At last) {
    Ptr<VerbatimNode> held;
    for (At at = first; at <= last; ++at) {
        const bool isBrace = shapes_->kind(at) == Kind::OpenBrace;
        if (!isBrace && !shapes_->isDeadBranch(at)) continue;
        if (!held) held = makeVerbatim(first, last);
        if (!isBrace || !shapes_->isBody(at)) continue;
        const At close = shapes_->partner(at);
        stream.seek(at);
        held->addChild(parseBlock(stream));
        at = close;
    }
    return held;
}

// Copied as it stands, since no other node has a place for it.
void Parser::addVerbatim(Stream& stream, InteriorNode& body, At first, At last) {
    auto node = heldBodies(stream, first, last);
    body.addChild(node ? std::move(node) : makeVerbatim(first, last));
    stream.seek(last + 1);
}

void Parser::leaveAlone(Stream& stream, InteriorNode& body, At first, At last) {
    auto node = makeVerbatim(first, last);
    node->isUnread = true;
    body.addChild(std::move(node));
    messages_.push_back({2, buffer_->first(first), static_cast<std::int32_t>(ParseCode::LeftAlone),
                         std::string(textOf(ParseCode::LeftAlone))});
    stream.seek(last + 1);
}

// ---- Items with a word of their own

void Parser::passUsing(Stream& stream, InteriorNode& body) {
    const Recorded item(*this, stream, OutlineItem::Sort::Using);
    const At first = stream.index();
    const At last = shapes_->statementEnd(first);
    if (roles_) roles_->usingItem(first, last);
    auto held = heldBodies(stream, first, last);
    body.addChild(held ? std::move(held) : makeVerbatim(first, last));
    stream.seek(last + 1);
}

bool Parser::parseModernNamespace(Stream& stream, InteriorNode& body) {
    const Trn::NestingGuard guard(depth_);
    const At first = stream.index();
    At brace = first;
    for (;; brace = shapes_->next(brace)) {
        brace = shapes_->passAttributes(brace);
        const TokenKind kind = shapes_->kind(brace);
        if (kind == Kind::OpenBrace) break;
        if (kind == Kind::OpenParen) {
            brace = shapes_->partner(brace);
        } else if (kind == Kind::Assign || kind == Kind::Semicolon) {
            passUsing(stream, body);
            return true;
        } else if (kind != Kind::Identifier && kind != Kind::Namespace && kind != Kind::Inline &&
                   kind != Kind::Export) {
            return false;
        }
    }
    if (roles_) roles_->namespaceHead(first, brace, Role::NamespaceBody);
    Recorded item(*this, stream, OutlineItem::Sort::Namespace);
    item.setBody(brace);
    auto node = make<NamespaceDeclNode>();
    node->head = makeLeaf<NamespaceHeadNode>(first, shapes_->previous(brace));
    node->body = make<NamespaceBodyNode>();
    node->body->setFirstPosition(buffer_->first(brace));
    stream.seek(brace + 1);
    parseModernItems(stream, *node->body, Frame::Namespace);
    body.addChild(std::move(node));
    return true;
}

// The directives of modules, of which `import <a.h>;` must not be touched inside.
bool Parser::parseModernModule(Stream& stream, InteriorNode& body) {
    const At first = stream.index();
    const At word = shapes_->kind(first) == Kind::Export ? shapes_->next(first) : first;
    if (!shapes_->isWord(word, "module") && !shapes_->isWord(word, "import")) return false;
    switch (shapes_->kind(shapes_->next(word))) {
        case Kind::Identifier:
        case Kind::Less:
        case Kind::StringLiteral:
        case Kind::Colon:
            break;
        default:
            return false;
    }
    const Recorded item(*this, stream, OutlineItem::Sort::Module);
    addVerbatim(stream, body, first, shapes_->statementEnd(first));
    return true;
}

bool Parser::parseModernLinkage(Stream& stream, InteriorNode& body) {
    const At first = stream.index();
    At brace = shapes_->next(first);
    if (shapes_->kind(brace) == Kind::StringLiteral) brace = shapes_->next(brace);
    if (shapes_->kind(brace) != Kind::OpenBrace) return false;
    const Trn::NestingGuard guard(depth_);
    if (roles_) roles_->namespaceHead(first, brace, Role::LinkageBody);
    Recorded item(*this, stream, OutlineItem::Sort::Linkage);
    item.setBody(brace);
    auto node = make<LinkageBlockNode>();
    node->head = makeLeaf<ExprNode>(first, shapes_->previous(brace));
    node->body = make<LinkageBlockBodyNode>();
    node->body->setFirstPosition(buffer_->first(brace));
    stream.seek(brace + 1);
    parseModernItems(stream, *node->body, Frame::Linkage);
    body.addChild(std::move(node));
    return true;
}

// A head with a class or a function behind it. Anything else is copied as it stands with its head, which no other
// node would take over.
bool Parser::parseModernTemplate(Stream& stream, InteriorNode& body) {
    const At first = stream.index();
    At at = first;
    while (shapes_->kind(at) == Kind::Template || shapes_->isWord(at, "requires")) {
        if (shapes_->kind(at) == Kind::Template) {
            const At open = shapes_->next(at);
            if (shapes_->kind(open) != Kind::Less) {
                const At last = shapes_->statementEnd(first);
                if (roles_) roles_->instantiation(first, last);
                const Recorded item(*this, stream, OutlineItem::Sort::Statement);
                addExpression(stream, body, first, last);
                return true;
            }
            if (shapes_->partner(open) == 0) return false;
            at = shapes_->next(shapes_->partner(open));
        } else {
            at = shapes_->next(shapes_->requiresClauseEnd(at));
        }
    }
    if (roles_) roles_->templateHead(first, shapes_->previous(at));
    recordTemplateHead(first, shapes_->previous(at));
    if (isCloser(shapes_->kind(at))) {
        addVerbatim(stream, body, first, shapes_->previous(at));
        return true;
    }
    ItemShape shape = shapes_->declaration(at, Frame::Class);
    const bool hasNode = shape.sort == Sort::Class || shape.sort == Sort::Function;
    if (!hasNode) {
        while (shape.sort == Sort::Macro && !isCloser(shapes_->kind(shapes_->next(shape.last)))) {
            shape = shapes_->declaration(shapes_->next(shape.last), Frame::Class);
        }
        if (roles_) roles_->item(shape, Frame::Class);
        Recorded item(*this, stream, shape, Frame::Class);
        At last = shape.last;
        if (shape.sort == Sort::Class || shape.sort == Sort::Enum) last = shapes_->statementEnd(last);
        if (shape.sort == Sort::Head) last = shapes_->partner(shapes_->next(last));
        addVerbatim(stream, body, first, last);
        return true;
    }
    do {
        addTemplateHead(stream, body);
        attachTrivia(stream, body);
    } while (stream.index() < at && shapes_->kind(stream.index()) == Kind::Template);
    return true;
}

// A clause behind the head stays as it stands.
void Parser::addTemplateHead(Stream& stream, InteriorNode& body) {
    const At first = stream.index();
    auto node = make<TemplateNode>();
    const At open = shapes_->next(first);
    At last = shapes_->partner(open);
    node->keyword = make<KeywordNode>(TokenKind{Kind::Template}, buffer_->first(first), buffer_->last(first));
    node->parameters = modernParameters(open, last);
    body.addChild(std::move(node));
    if (const At clause = shapes_->next(last); shapes_->isWord(clause, "requires")) {
        last = shapes_->requiresClauseEnd(clause);
        body.addChild(makeVerbatim(clause, last));
    }
    stream.seek(last + 1);
}

void Parser::parseModernAccessLabel(Stream& stream, InteriorNode& body) {
    const At first = stream.index();
    At colon = shapes_->next(first);
    int kind = accessKindOf(shapes_->kind(first));
    if (kind == 0 || shapes_->kind(colon) == Kind::Identifier) kind = wordAccessKind;
    if (shapes_->kind(colon) == Kind::Identifier) colon = shapes_->next(colon);
    if (roles_) roles_->label(first, colon, Role::AccessColon);
    Recorded item(*this, stream, OutlineItem::Sort::AccessLabel, Frame::Class);
    item.setColon(colon);
    body.addChild(make<AccessSpecNode>(kind, buffer_->first(first), buffer_->last(colon)));
    stream.seek(colon + 1);
}

std::unique_ptr<CaseNode> Parser::parseModernCase(Stream& stream) {
    const At keyword = stream.index();
    const At value = shapes_->next(keyword);
    const At colon = shapes_->labelColon(value);
    if (roles_) roles_->label(value, colon, Role::CaseColon);
    Recorded item(*this, stream, OutlineItem::Sort::CaseLabel, Frame::Block);
    item.setColon(colon);
    auto label = make<CaseNode>();
    label->keyword = make<KeywordNode>(shapes_->kind(keyword), buffer_->first(keyword), buffer_->last(keyword));
    if (colon != value) label->value = makeLeaf<ExprNode>(value, shapes_->previous(colon));
    label->colonPosition = buffer_->last(colon);
    stream.seek(colon + 1);
    return label;
}

std::unique_ptr<LabelNode> Parser::parseModernLabel(Stream& stream) {
    const At name = stream.index();
    const At colon = shapes_->next(name);
    if (roles_) roles_->label(name, colon, Role::LabelColon);
    Recorded item(*this, stream, OutlineItem::Sort::GotoLabel, Frame::Block);
    item.setColon(colon);
    auto label = make<LabelNode>();
    label->name = makeLeaf<IdNode>(name, name);
    label->colonPosition = buffer_->last(colon);
    stream.seek(colon + 1);
    return label;
}

// With a bracket it goes through its `;` and is copied; the forms without one are those of the classic dialect.
void Parser::parseModernAsm(Stream& stream, InteriorNode& body) {
    const Recorded item(*this, stream, OutlineItem::Sort::Assembler);
    const At first = stream.index();
    At open = shapes_->next(first);
    while (shapes_->kind(open) == Kind::Identifier || shapes_->kind(open) == Kind::Volatile ||
           shapes_->kind(open) == Kind::Inline || shapes_->kind(open) == Kind::Goto) {
        open = shapes_->next(open);
    }
    if (shapes_->kind(open) != Kind::OpenParen) {
        auto statement = parseAsm(stream);
        if (statement) body.addChild(std::move(statement));
        return;
    }
    const At last = shapes_->statementEnd(first);
    if (roles_) roles_->assembler(first, last);
    addVerbatim(stream, body, first, last);
}

// Words between the keyword and the bracket (`constexpr`, a macro) belong to neither; `if consteval` has no bracket.
bool Parser::parseModernCondition(Stream& stream, CtrlSubStmtHeadNode& head) {
    At open = shapes_->next(stream.index() - 1);
    At last = 0;
    while (shapes_->kind(open) == Kind::Identifier || shapes_->kind(open) == Kind::Not) {
        last = open;
        open = shapes_->next(open);
        if (shapes_->kind(open) == Kind::OpenBrace) {
            head.setLastPosition(buffer_->last(last));
            stream.seek(open);
            return true;
        }
    }
    if (shapes_->kind(open) != Kind::OpenParen) return true;
    const At close = shapes_->partner(open);
    if (roles_) roles_->condition(open, head.keyword->kind() == Kind::Catch);
    if (outline_) outline_->item(outline_->items().size() - 1).open = open;
    head.condition = makeLeaf<ExprNode>(open, close);
    head.held = heldBodies(stream, open, close);
    stream.seek(close + 1);
    return true;
}

}  // namespace Cpp
