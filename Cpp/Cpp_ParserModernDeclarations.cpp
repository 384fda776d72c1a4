// The declarations of the modern dialect: from the shape of each to its node.
#include "Cpp_Parser.h"
#include "Cpp_ParserWords.h"
#include "Cpp_RoleFinder.h"
#include "Cpp_ShapeWords.h"
#include "Trn_NestingGuard.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::TokenKind;

// `end` is the bracket behind the last part.
template <class F>
void Parser::forEachPart(At first, At end, F f) {
    At part = shapes_->next(first - 1);
    for (At at = part; at < end;) {
        const bool isAngle = shapes_->kind(at) == Kind::Less && shapes_->partner(at) != 0 && shapes_->partner(at) < end;
        const At following = isAngle ? shapes_->next(shapes_->partner(at)) : shapes_->behind(at);
        const bool isComma = shapes_->kind(at) == Kind::Comma;
        if (isComma || following >= end) {
            const At last = isComma ? shapes_->previous(at) : shapes_->previous(end);
            if (last >= part) f(part, last);
            part = following;
        }
        at = following;
    }
}

// ---- Classes and enums

void Parser::addClass(Stream& stream, InteriorNode& body, const ItemShape& shape) {
    const Trn::NestingGuard guard(depth_);
    ClassDeclNode& declaration = addClassHead(body, shape);
    stream.seek(shape.body + 1);
    parseModernItems(stream, *declaration.body, Frame::Class);
    addTail(stream, body, declaration, shape.last);
}

ClassDeclNode& Parser::addClassHead(InteriorNode& body, const ItemShape& shape) {
    ClassDeclNode& declaration = addNew<ClassDeclNode>(body);
    declaration.head = make<ClassHeadNode>();
    const At behindName = shape.colon != 0 ? shape.colon : shape.body;
    const At nameLast = shapes_->previous(behindName);
    int classKey = 0;
    for (At at = shape.first; at <= nameLast; ++at) {
        if (shapes_->kind(at) == Kind::Struct) classKey = 1;
        if (shapes_->kind(at) == Kind::Union) classKey = 2;
    }
    declaration.head->name = make<ClassNameNode>(classKey, sourceText(shape.first, nameLast),
                                                 buffer_->first(shape.first), buffer_->last(nameLast));
    if (shape.colon != 0) declaration.head->bases = modernBases(shape.colon + 1, shape.body);
    declaration.body = make<ClassBodyNode>();
    declaration.body->setFirstPosition(buffer_->first(shape.body));
    return declaration;
}

std::unique_ptr<BaseClauseListNode> Parser::modernBases(At first, At end) {
    auto list = make<BaseClauseListNode>();
    forEachPart(first, end, [&](At part, At last) {
        int access = 0;
        bool isVirtual = false;
        At name = part;
        for (; name < last; name = shapes_->next(name)) {
            if (shapes_->kind(name) == Kind::Virtual)
                isVirtual = true;
            else if (isAccessKeyword(shapes_->kind(name)))
                access = accessKindOf(shapes_->kind(name));
            else
                break;
        }
        list->addChild(
            make<BaseClauseNode>(access, isVirtual, sourceText(name, last), buffer_->first(part), buffer_->last(last)));
    });
    if (list->childCount() == 0) return nullptr;
    return list;
}

void Parser::addEnum(Stream& stream, InteriorNode& body, const ItemShape& shape) {
    auto declaration = make<EnumDeclNode>();
    declaration->head = makeLeaf<EnumHeadNode>(shape.first, shapes_->previous(shape.body));
    auto list = make<EnumBodyNode>();
    list->setFirstPosition(buffer_->first(shape.body));
    list->setLastPosition(buffer_->last(shape.last));
    At part = 0;
    At previous = 0;
    const auto flush = [&] {
        if (part != 0) list->addChild(makeLeaf<ExprNode>(part, previous));
        part = 0;
    };
    for (At at = shape.body + 1; at < shape.last; ++at) {
        const TokenKind kind = shapes_->kind(at);
        if (Trn::isTrivia(kind)) {
            flush();
            stream.seek(at);
            list->addChild(parseTrivia(stream));
            at = stream.index() - 1;
        } else if (kind == Kind::Comma) {
            flush();
        } else {
            if (part == 0) part = at;
            if (shapes_->isOpening(at)) at = shapes_->partner(at);
            previous = at;
        }
    }
    flush();
    declaration->body = std::move(list);
    stream.seek(shape.last + 1);
    DeclNode& node = *declaration;
    body.addChild(std::move(declaration));
    addTail(stream, body, node, shape.last);
}

// What stands behind the `}` of a class or enum: its `;`, or declarators in front of that.
void Parser::addTail(Stream& stream, InteriorNode& body, DeclNode& declaration, At brace) {
    const At first = shapes_->next(brace);
    if (shapes_->kind(first) == Kind::Semicolon) {
        declaration.setLastPosition(buffer_->first(first));
        stream.seek(first + 1);
        return;
    }
    const bool isDeclarator = shapes_->kind(first) == Kind::Identifier || shapes_->kind(first) == Kind::OpenParen ||
                              isDeclaratorSign(shapes_->kind(first)) || shapes_->startsAttribute(first) ||
                              isCvQualifier(shapes_->kind(first)) || shapes_->kind(first) == Kind::OpenBracket ||
                              (roles_ && shapes_->kind(first) == Kind::Static && !shapes_->startsLine(first));
    const At last = shapes_->statementEnd(first);
    if (!isDeclarator || shapes_->kind(last) != Kind::Semicolon) return;
    if (shapes_->startsLine(first) && shapes_->next(first) < last &&
        shapes_->kind(shapes_->next(first)) == Kind::Identifier) {
        return;  // the `;` has been forgotten, or a macro has it
    }
    if (roles_) roles_->declarators(first, last);
    const Recorded item(*this, stream, OutlineItem::Sort::Declarators);
    At assign = first;
    while (assign < last && shapes_->kind(assign) != Kind::Assign) assign = shapes_->behind(assign);
    auto data = make<DataDeclNode>();
    data->name = makeLeaf<IdNode>(first, shapes_->previous(assign));
    if (assign != last) {
        if (auto held = heldBodies(stream, assign, shapes_->previous(last)); held && held->childCount() > 0) {
            held->setFirstPosition(buffer_->first(first));
            held->setLastPosition(buffer_->last(last));
            body.addChild(std::move(held));
            stream.seek(last + 1);
            return;
        }
        data->initializer = makeLeaf<ExprNode>(assign, shapes_->previous(last));
    }
    data->setLastPosition(buffer_->first(last));
    body.addChild(std::move(data));
    stream.seek(last + 1);
}

// ---- Functions

void Parser::addFunction(Stream& stream, InteriorNode& body, const ItemShape& shape) {
    const At headEnd = shape.colon != 0 ? shape.colon : shapes_->partner(shape.open);
    if (shapes_->holdsBody(shape.first, headEnd)) return addVerbatim(stream, body, shape.first, shape.last);
    FunctionDeclNode& declaration = addFunctionHead(stream, body, shape);
    if (shape.body == 0) return addFunctionEnd(stream, body, shape);
    stream.seek(shape.body);
    // Behind old-style parameters the body is a block of its own, whose brace isn't put behind the last of them.
    const bool isApart = shape.colon == 0 && shapes_->kind(shapes_->previous(shape.body)) == Kind::Semicolon;
    auto block = parseBlock(stream);
    if (isApart)
        body.addChild(std::move(block));
    else
        declaration.body = std::move(block);
}

// With the member initializers, if there are any.
FunctionDeclNode& Parser::addFunctionHead(Stream& stream, InteriorNode& body, const ItemShape& shape) {
    auto head = modernHead(shape);
    if (shape.colon == 0 || shape.tryWord != 0) {
        auto& declaration = addNew<FunctionDeclNode>(body);
        declaration.head = std::move(head);
        return declaration;
    }
    auto& declaration = addNew<CtorDeclNode>(body);
    declaration.head = std::move(head);
    declaration.initializers = modernInitializers(stream, shape.colon + 1, shape.body);
    return declaration;
}

// A body that is a `try` block follows as a statement of its own.
void Parser::addFunctionEnd(Stream& stream, InteriorNode& body, const ItemShape& shape) {
    if (shape.tryWord != 0 && (shape.colon == 0 || roles_)) {
        stream.seek(shape.tryWord);
        return addControlStatement(stream, body, Frame::File);
    }
    // The first edition copies one with member initializers as it stands.
    if (shape.tryWord != 0) body.addChild(heldBodies(stream, shape.tryWord, shape.last));
    stream.seek(shape.last + 1);
}

std::unique_ptr<FunctionHeadNode> Parser::modernHead(const ItemShape& shape) {
    if (!makesLeaves_) return nullptr;
    auto head = make<FunctionHeadNode>();
    if (shape.nameFirst > shape.first) {
        head->returnType = makeLeaf<FunctionReturnNode>(shape.first, shapes_->previous(shape.nameFirst));
    }
    head->name = makeLeaf<IdNode>(shape.nameFirst, shape.nameLast);
    const At close = shapes_->partner(shape.open);
    head->parameters = modernParameters(shape.open, close);
    const At end = shape.colon != 0 ? shape.colon : shape.body != 0 ? shape.body : shape.last;
    At last = close;
    for (At at = shapes_->next(close); at < end && shapes_->kind(at) != Kind::Try; at = shapes_->behind(at)) {
        last = shapes_->isOpening(at) ? shapes_->partner(at) : at;
    }
    if (last != close) head->tail = makeVerbatim(shapes_->next(close), last);
    return head;
}

std::unique_ptr<ParameterListNode> Parser::modernParameters(At open, At close) {
    auto list = make<ParameterListNode>();
    list->setFirstPosition(buffer_->first(open));
    list->setLastPosition(buffer_->last(close));
    forEachPart(open + 1, close, [&](At first, At last) { list->addChild(makeLeaf<ParameterNode>(first, last)); });
    return list;
}

std::unique_ptr<InitializerListNode> Parser::modernInitializers(Stream& stream, At first, At end) {
    auto list = make<InitializerListNode>();
    forEachPart(first, end, [&](At part, At last) {
        if (shapes_->holdsBrace(part, last)) return list->addChild(heldBodies(stream, part, last));
        At open = part;
        while (open < last && shapes_->kind(open) != Kind::OpenParen) open = shapes_->next(open);
        auto initializer = make<InitializerNode>();
        initializer->name = makeLeaf<IdNode>(part, shapes_->previous(open));
        const At close = shapes_->partner(open);
        auto arguments = make<ArgListNode>();
        arguments->setFirstPosition(buffer_->first(open));
        arguments->setLastPosition(buffer_->last(last));
        forEachPart(open + 1, close, [&](At argument, At argumentLast) {
            arguments->addChild(makeLeaf<ArgNode>(argument, argumentLast));
        });
        initializer->arguments = std::move(arguments);
        list->addChild(std::move(initializer));
    });
    if (list->childCount() == 0) return nullptr;
    return list;
}

// ---- Data

// A braced value behind `=` is laid out as such, unless it holds bodies; any other brace leaves the declaration as it
// stands.
void Parser::addData(Stream& stream, InteriorNode& body, const ItemShape& shape) {
    const bool isPlainBrace = shape.initializer != 0 && shapes_->kind(shape.initializer) == Kind::Assign &&
                              shapes_->kind(shapes_->next(shape.initializer)) == Kind::OpenBrace &&
                              !shapes_->holdsBrace(shape.first, shape.initializer) &&
                              !shapes_->holdsNoCode(shape.first, shape.last);
    auto held = heldBodies(stream, shape.first, shape.last);
    if (held && (held->childCount() > 0 || !isPlainBrace)) {
        body.addChild(std::move(held));
    } else if (makesLeaves_) {
        addDataNode(body, shape);
    }
    stream.seek(shape.last + 1);
}

void Parser::addDataNode(InteriorNode& body, const ItemShape& shape) {
    auto& data = addNew<DataDeclNode>(body);
    data.type = makeLeaf<TypeNode>(shape.first, shapes_->previous(shape.nameFirst));
    data.name = makeLeaf<IdNode>(shape.nameFirst, shape.nameLast);
    if (shape.initializer != 0) {
        data.initializer = makeLeaf<ExprNode>(shape.initializer, shapes_->previous(shape.last));
    }
    data.setLastPosition(buffer_->first(shape.last));
}

}  // namespace Cpp
