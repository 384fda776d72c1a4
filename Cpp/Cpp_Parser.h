// The recursive-descent parser of a formatter: it decides by token shapes alone, knows no types and no macros,
// and runs to the end of any text.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "Cpp_Lexer.h"
#include "Cpp_Nodes.h"
#include "Cpp_ParseCodes.h"
#include "Cpp_ShapeScan.h"
#include "Trn_Parser.h"
#include "Trn_TokenStream.h"

namespace Cpp {

class RoleFinder;

// A syntax error is a report in the list, and the operation concerned gives null or an incomplete node; its caller
// goes on with the next token that it can use. A parser may serve any number of texts, one after the other.
class Parser : public Trn::Parser {
public:
    // Whether expression statements get their texts, which are mere sketches, and initializers more of theirs than the
    // first token. No pass of a formatter reads these.
    enum class Sketches { Made, LeftOut };
    // Whether every token of a text in the modern dialect gets its role. The root then keeps the tokens, and the lexer
    // must outlive it. Whoever reads nothing but these can have a tree without its leaves, in less time.
    enum class Roles { LeftOut, Found, FoundAlone };
    explicit Parser(Sketches sketches = Sketches::Made, Dialect dialect = Dialect::classic,
                    Roles roles = Roles::LeftOut)
        : makesSketches_(sketches == Sketches::Made),
          isModern_(dialect == Dialect::modern),
          findsRoles_(roles != Roles::LeftOut),
          makesLeaves_(roles != Roles::FoundAlone) {}

    // Macros that the modern dialect needn't guess at. They must outlive the parser.
    void know(const MacroNames& macros) { macros_ = macros.empty() ? nullptr : &macros; }

    // `lexer` must be a Cpp::Lexer of the same dialect and `root` a Cpp::RootNode; the cast throws if they are not.
    // Throws Trn::Exception for a text nested beyond Trn::NestingGuard::limit.
    void parse(Trn::Lexer& lexer, Trn::SyntaxNode& root, Trn::ParseMessageList& messages) override;

private:
    using Token = Trn::TokenView;
    using TokenKind = Trn::TokenKind;
    using Tokens = Trn::TokenList;
    using Stream = Trn::TokenStream;
    template <class Node>
    using Ptr = std::unique_ptr<Node>;
    enum class Step { GoOn, Stop, Fail };

    // Reads items until one says stop. An item that leaves the stream where it stood would come again for ever, so one
    // token is dropped behind it. That happens with a stray access keyword at file level, and at the end of a list
    // whose last token has been replaced.
    template <class ParseItem>
    Step repeat(Stream& stream, ParseItem parseItem) {
        for (;;) {
            const std::size_t cursor = stream.cursor();
            const Step step = parseItem();
            if (step != Step::GoOn) return step;
            if (stream.cursor() == cursor) stream.get();
        }
    }

    // Reads the items between commas up to a `{`, comments and directives among them. Null with a report for a text
    // that ends first, and null for a list of nothing.
    template <class List, class ParseItem>
    Ptr<List> parseItemsToBrace(Stream& stream, ParseItem parseItem) {
        auto list = make<List>();
        for (;;) {
            const TokenKind next = stream.peek().kind();
            if (Trn::isEnd(next)) {
                report(stream.get().first(), ParseCode::UnexpectedEnd);
                return nullptr;
            }
            if (next == Trn::Kind::OpenBrace) break;
            if (next == Trn::Kind::Comma) {
                stream.get();
            } else if (Trn::isTrivia(next)) {
                list->addChild(parseTrivia(stream));
            } else {
                list->addChild(parseItem());
            }
        }
        if (list->childCount() == 0) return nullptr;
        return list;
    }

    // ---- Frame (Cpp_Parser.cpp)

    void skipUntil(Stream& stream, TokenKind kind);
    void skipUntilAttaching(Stream& stream, InteriorNode& node, TokenKind kind);
    bool collectUntil(Stream& stream, Tokens& list, TokenKind kind);
    Position consumeSemicolon(Stream& stream);

    void report(Position position, ParseCode code);
    void report(Position position, std::string text);
    // Goes back to the last real token behind the end token just read, reports the end there and gives that token.
    Token reportUnexpectedEnd(Stream& stream);
    // Reads a `{`. Any other token is put back and reported with `text`.
    std::optional<Position> readOpenBrace(Stream& stream, std::string_view text);

    // ---- Comments and directives (Cpp_ParserTrivia.cpp)

    // Trivia are the comments and directives. A null result stands for a region that doesn't end.
    Ptr<CommentNode> parseComment(Stream& stream);
    Ptr<PreprocDirectiveNode> parseDirective(Stream& stream);
    Ptr<SyntaxNode> parseTrivia(Stream& stream);
    // Reads what parseTrivia would and makes no node.
    void passTrivia(Stream& stream) { passRest(stream, stream.get()); }
    // The rest of a region that this token opens.
    void passRest(Stream& stream, const Token& token);
    void dropTrivia(Stream& stream) {
        while (Trn::isTrivia(stream.peek().kind())) passTrivia(stream);
    }
    // The next token that is no trivia. What stands in front of it is dropped.
    Token getSignificant(Stream& stream) {
        for (;;) {
            const Token token = stream.get();
            if (!Trn::isTrivia(token.kind())) return token;
            passRest(stream, token);
        }
    }
    void attachTrivia(Stream& stream, InteriorNode& node);
    // The last position of the region whose opening token has been read.
    std::optional<Position> passCommentRegion(Stream& stream);
    std::optional<Position> passDeadRegion(Stream& stream);
    // A copy of the first token ahead that is no trivia; reads nothing.
    Token peekSignificant(Stream& stream);

    // ---- The items of a file and of bodies (Cpp_ParserItems.cpp)

    struct ItemLoop;

    void parseFileItems(Stream& stream, RootNode& root);
    // False if an item makes the whole body useless.
    bool parseNamespaceItems(Stream& stream, NamespaceBodyNode& body);
    bool parseLinkageItems(Stream& stream, LinkageBlockBodyNode& body);
    bool parseClassItems(Stream& stream, ClassBodyNode& body);
    bool parseItems(Stream& stream, ItemLoop loop);
    Step parseItem(Stream& stream, ItemLoop& loop);
    Step closeItemBrace(Stream& stream, ItemLoop& loop);
    Step parseItemDeclaration(Stream& stream, ItemLoop& loop);
    void parseItemNode(Stream& stream, ItemLoop& loop);
    void parseNamespaceOrAlias(Stream& stream, InteriorNode& body);
    void parseFileWord(Stream& stream, InteriorNode& body);
    void parseFileAsm(Stream& stream, InteriorNode& body);
    void parseFileStatement(Stream& stream, InteriorNode& body);

    // ---- Declarations (Cpp_ParserDeclarations.cpp, Cpp_ParserFunctionScan.cpp, Cpp_ParserCollecting.cpp)

    enum class Decision { Data, Function, FunctionPtr, Class, Enum };
    struct DeclarationScan;

    Ptr<DeclNode> parseDeclaration(Stream& stream, bool& takesSemicolon, bool allowBitfield);
    // parseDeclaration with the `;` behind a class or enum; null without a report if nothing could be made of it.
    Ptr<DeclNode> parseDeclarationWithEnd(Stream& stream, bool allowBitfield);
    // Adds a declaration to `body`, or reports it as unknown and gives false.
    bool addDeclaration(Stream& stream, InteriorNode& body, bool allowBitfield);

    bool scanDeclaration(Stream& stream, DeclarationScan& scan);
    Step scanDeclarationToken(Stream& stream, DeclarationScan& scan);
    Step scanAssign(Stream& stream, DeclarationScan& scan, const Token& assign);
    Step scanOpenBracket(Stream& stream, DeclarationScan& scan, const Token& bracket);
    Step scanOpenParen(Stream& stream, DeclarationScan& scan);
    bool scanFunction(Stream& stream, DeclarationScan& scan);
    bool scanFunctionTail(Stream& stream, DeclarationScan& scan);
    bool collectParens(Stream& stream, Tokens& list, int depth);
    bool collectCtorInitializers(Stream& stream, Tokens& list);
    bool collectExceptionSpec(Stream& stream, Tokens& list);
    bool collectFunctionEnd(Stream& stream, Tokens& list);
    void collectDeclarator(Stream& stream, Tokens& list);
    Ptr<DeclNode> parseCollectedFunction(Stream& stream, Tokens& list);
    Ptr<DeclNode> parseCollectedFunctionPtr(Stream& stream, Tokens& list);
    Ptr<DeclNode> parseCollectedClass(Stream& stream, Tokens& list);
    Ptr<DeclNode> parseCollectedEnum(Stream& stream, Tokens& list);
    std::optional<Trn::TokenStretch> collectBody(Stream& stream);

    // ---- Classes (Cpp_ParserClasses.cpp, Cpp_ParserBaseClauses.cpp)

    Ptr<ClassDeclNode> parseClassDecl(Stream& stream);
    Ptr<ClassHeadNode> parseClassHead(Stream& stream);
    Ptr<ClassNameNode> parseClassName(Stream& stream);
    Ptr<BaseClauseListNode> parseBaseClauseList(Stream& stream);
    Ptr<BaseClauseNode> parseBaseClause(Stream& stream);
    bool readBaseTemplateArguments(Stream& stream, BaseClauseNode& clause, JoinedText& text, int& angleDepth);
    bool acceptBaseKeyword(const Token& keyword, BaseClauseNode& clause, bool isBehindName);
    Ptr<ClassBodyNode> parseClassBody(Stream& stream);
    Ptr<AccessSpecNode> parseAccessLabel(Stream& stream);

    // ---- Enums, namespaces and linkage blocks (Cpp_ParserEnums.cpp and so on)

    struct Enumerator;

    Ptr<EnumDeclNode> parseEnumDecl(Stream& stream);
    Ptr<EnumHeadNode> parseEnumHead(Stream& stream);
    Ptr<EnumBodyNode> parseEnumBody(Stream& stream);
    void addEnumerator(EnumBodyNode& body, Enumerator& enumerator);
    bool parseEnumItem(Stream& stream, EnumBodyNode& body, Enumerator& enumerator, int& depth);
    Ptr<NamespaceDeclNode> parseNamespaceDecl(Stream& stream);
    Ptr<NamespaceHeadNode> parseNamespaceHead(Stream& stream);
    Ptr<NamespaceBodyNode> parseNamespaceBody(Stream& stream);
    bool startsNamespaceAlias(const Stream& stream) const;
    Ptr<SyntaxNode> parseExtern(Stream& stream);
    bool startsLinkageBlock(const Stream& stream) const;
    Ptr<LinkageBlockNode> parseLinkageBlock(Stream& stream);
    Ptr<LinkageBlockBodyNode> parseLinkageBody(Stream& stream);

    // ---- Functions, parameters and templates (Cpp_ParserFunctions.cpp, Cpp_ParserFunctionNames.cpp and so on)

    struct HeadScan;

    Ptr<FunctionDeclNode> parseFunctionDecl(Stream& head, Stream& stream);
    Ptr<FunctionHeadNode> parseFunctionHead(Stream& stream);
    bool findParameterBracket(Stream& stream, HeadScan& scan);
    bool scanHeadParen(Stream& stream, HeadScan& scan, int& index);
    bool findFunctionName(const Stream& stream, HeadScan& scan);
    bool findPlainName(const Stream& stream, HeadScan& scan);
    bool findCallOperator(const Stream& stream, HeadScan& scan);
    bool findIndexOperator(const Stream& stream, HeadScan& scan);
    bool findTemplateName(const Stream& stream, HeadScan& scan);
    bool findSymbolOperator(const Stream& stream, HeadScan& scan);
    bool parseFunctionHeadTail(Stream& stream, FunctionHeadNode& head);
    Ptr<FunctionReturnNode> parseReturnType(const Stream& stream, int nameFirst);
    Ptr<ExprNode> parseExceptionSpec(Stream& stream);
    Ptr<ExprNode> parsePureSpec(Stream& stream);
    Ptr<TextNode> parseCvQualifiers(Stream& stream);

    struct ParameterScan;

    Ptr<ParameterListNode> parseParameterList(Stream& stream, bool isTemplate);
    Step scanParameterToken(Stream& stream, ParameterListNode& list, ParameterScan& scan);
    Ptr<InitializerListNode> parseCtorInitializerList(Stream& stream);
    Ptr<InitializerNode> parseCtorInitializer(Stream& stream);
    Ptr<IdNode> parseCtorInitializerName(Stream& stream);
    Ptr<ArgListNode> parseCtorArguments(Stream& stream);
    // Either a TemplateNode or, for an explicit instantiation, an ExprNode.
    Ptr<SyntaxNode> parseTemplate(Stream& stream);

    // ---- Data and function pointer declarations (Cpp_ParserData.cpp, Cpp_ParserInitializers.cpp,
    // Cpp_ParserFunctionPtrs.cpp)

    struct DataHead;
    struct FunctionPtrScan;

    // A null without a report means: this is no data declaration.
    Ptr<DataDeclNode> parseDataDecl(Stream& list, Stream& stream, bool allowBitfield);
    Ptr<DataDeclNode> parseDataHead(Stream& stream, bool allowBitfield);
    bool cutDataHead(Stream& stream, bool allowBitfield, DataHead& head);
    bool endsDataHead(Stream& stream, const Token& token, bool allowBitfield, DataHead& head);
    Ptr<ExprNode> parseAssignInitializer(Stream& stream, const Token& assign);
    Ptr<ExprNode> parseParenInitializer(Stream& list, Stream& stream, const Token& paren);
    Ptr<ExprNode> parseBitfield(Stream& list, Stream& stream, const Token& colon);
    bool readBitfieldWidth(Stream& list, JoinedText& text);
    bool readNextBitfield(Stream& list, JoinedText& text);
    void reportBadBitfield(const Token& token, std::string_view expected);
    Ptr<FunctionPtrDeclNode> parseFunctionPtrDecl(Stream& stream);
    Step scanFunctionPtrToken(Stream& stream, FunctionPtrScan& scan);
    Step endFunctionPtrName(Stream& stream, FunctionPtrScan& scan, const Token& paren);

    // ---- Statements (Cpp_ParserBlocks.cpp, Cpp_ParserExpressions.cpp, Cpp_ParserControl.cpp and so on)

    struct Expression;

    Ptr<BlockNode> parseBlock(Stream& stream);
    void parseClassicBlock(Stream& stream, BlockNode& block);
    void parseModernBlock(Stream& stream, BlockNode& block);
    void parseUnbraced(Stream& stream, BlockNode& block);
    void parseSingleStatement(Stream& stream, TokenKind kind, BlockNode& block);
    Step parseBlockItem(Stream& stream, BlockNode& block);
    void parseBlockStatement(Stream& stream, TokenKind kind, BlockNode& block);
    void parseBlockWord(Stream& stream, const Token& word, BlockNode& block);
    void parseDataOrExpression(Stream& stream, BlockNode& block);
    Ptr<ExprNode> parseExpressionStatement(Stream& stream);
    bool endsExpression(const Token& token, const Expression& expression) const;
    Ptr<CaseNode> parseCaseLabel(Stream& stream);
    Ptr<ExprNode> parseCaseValue(Stream& stream, Position& colon);
    Ptr<LabelNode> parseGotoLabel(Stream& stream);
    Ptr<AsmNode> parseAsm(Stream& stream);
    bool parseAsmBlock(Stream& stream, BlockNode& block);
    int parseAsmLine(Stream& stream, Token token, BlockNode& block);

    Ptr<CtrlStmtNode> parseControlStatement(Stream& stream);
    bool expectsPart(Stream& stream, TokenKind key);
    bool parseControlParts(Stream& stream, CtrlStmtNode& statement, TokenKind& key);
    Ptr<CtrlSubStmtNode> parseSubStatement(Stream& stream);
    Ptr<CtrlSubStmtHeadNode> parseSubStatementHead(Stream& stream);
    bool parseCondition(Stream& stream, CtrlSubStmtHeadNode& head);

    // A node of the tree. Texts among the arguments become texts of the tree.
    template <class Node, class... Args>
    Ptr<Node> make(Args&&... args) {
        return storage_->make<Node>(kept(args)...);
    }
    // The same, at the end of a body.
    template <class Node>
    Node& addNew(InteriorNode& body) {
        auto node = make<Node>();
        Node& made = *node;
        body.addChild(std::move(node));
        return made;
    }
    std::string_view kept(std::string_view text) { return storage_->keep(text); }
    std::string_view kept(JoinedText& text) { return storage_->keep(text); }
    template <class Value>
    const Value& kept(const Value& value) {
        return value;
    }

    // ---- The modern dialect (Cpp_ParserModern.cpp and so on)

    using At = Trn::TokenIndex;

    void parseModern(Trn::TokenBuffer& buffer, const Lexer& lexer, RootNode& root);
    bool parseModernItems(Stream& stream, InteriorNode& body, Frame frame);
    Step parseModernItem(Stream& stream, InteriorNode& body, Frame frame);
    bool parseFrameItem(Stream& stream, InteriorNode& body, Frame frame);
    bool parseModernStatement(Stream& stream, InteriorNode& body);
    void passEmptyItem(Stream& stream, Frame frame);
    void addBlock(Stream& stream, InteriorNode& body, Frame frame);
    bool addElements(Stream& stream, InteriorNode& body, Frame frame);
    void addControlStatement(Stream& stream, InteriorNode& body, Frame frame);
    void addShape(Stream& stream, InteriorNode& body, const ItemShape& shape, Frame frame);

    void passUsing(Stream& stream, InteriorNode& body);
    bool parseModernNamespace(Stream& stream, InteriorNode& body);
    bool parseModernTemplate(Stream& stream, InteriorNode& body);
    void addTemplateHead(Stream& stream, InteriorNode& body);
    bool parseModernModule(Stream& stream, InteriorNode& body);
    Ptr<CtrlStmtNode> macroLoop(Stream& stream, const ItemShape& shape);
    void addVerbatim(Stream& stream, InteriorNode& body, At first, At last);
    bool parseModernLinkage(Stream& stream, InteriorNode& body);
    void parseModernAccessLabel(Stream& stream, InteriorNode& body);
    Ptr<CaseNode> parseModernCase(Stream& stream);
    Ptr<LabelNode> parseModernLabel(Stream& stream);
    void parseModernAsm(Stream& stream, InteriorNode& body);
    void passInitializers(Stream& stream, CtrlSubStmtHeadNode& head);
    bool parseModernCondition(Stream& stream, CtrlSubStmtHeadNode& head);

    void addClass(Stream& stream, InteriorNode& body, const ItemShape& shape);
    ClassDeclNode& addClassHead(InteriorNode& body, const ItemShape& shape);
    void addEnum(Stream& stream, InteriorNode& body, const ItemShape& shape);
    void addTail(Stream& stream, InteriorNode& body, DeclNode& declaration, At brace);
    void addFunction(Stream& stream, InteriorNode& body, const ItemShape& shape);
    FunctionDeclNode& addFunctionHead(Stream& stream, InteriorNode& body, const ItemShape& shape);
    void addFunctionEnd(Stream& stream, InteriorNode& body, const ItemShape& shape);
    void addData(Stream& stream, InteriorNode& body, const ItemShape& shape);
    void addDataNode(InteriorNode& body, const ItemShape& shape);
    Ptr<BaseClauseListNode> modernBases(At first, At end);
    Ptr<ParameterListNode> modernParameters(At open, At close);
    Ptr<InitializerListNode> modernInitializers(Stream& stream, At first, At end);
    Ptr<FunctionHeadNode> modernHead(const ItemShape& shape);

    // While it lives, an item of the outline is being read, if one is made at all.
    class Recorded {
    public:
        // Begins at the next token that is no trivia.
        Recorded(Parser& parser, Stream& stream, OutlineItem::Sort sort, Frame frame = Frame::File);
        Recorded(Parser& parser, Stream& stream, const ItemShape& shape, Frame frame);
        ~Recorded();
        Recorded(const Recorded&) = delete;
        Recorded& operator=(const Recorded&) = delete;

        void setBody(At brace);
        void setColon(At colon);

    private:
        Parser& parser_;
        Stream& stream_;
        std::size_t number_ = 0;
    };
    void recordTemplateHead(At first, At last);

    // A leaf over tokens; its text is that of the source. Null if leaves are left out.
    template <class Node>
    Ptr<Node> makeLeaf(At first, At last) {
        if (!makesLeaves_) return nullptr;
        return make<Node>(sourceText(first, last), buffer_->first(first), buffer_->last(last));
    }
    std::string_view sourceText(At first, At last) const;
    Ptr<VerbatimNode> makeVerbatim(At first, At last);
    // What holds bodies, or only braces, inside of its tokens; null if it doesn't.
    Ptr<VerbatimNode> heldBodies(Stream& stream, At first, At last);
    // An expression or, if it holds braces, what is copied as it stands.
    void addExpression(Stream& stream, InteriorNode& body, At first, At last);
    void leaveAlone(Stream& stream, InteriorNode& body, At first, At last);
    // Calls `f` with the first and last token of each part between commas.
    template <class F>
    void forEachPart(At first, At end, F f);

    bool makesSketches_;
    bool isModern_;
    bool findsRoles_;
    bool makesLeaves_;
    const MacroNames* macros_ = nullptr;
    // Of the text in hand, in the modern dialect
    std::string_view source_;
    const Trn::TokenBuffer* buffer_ = nullptr;
    const ShapeScan* shapes_ = nullptr;
    RoleFinder* roles_ = nullptr;     // if they are asked for
    Outline* outline_ = nullptr;      // with the roles
    TreeStorage* storage_ = nullptr;  // of the tree in hand
    Trn::ParseMessageList messages_;
    int depth_ = 0;  // of nested blocks and bodies
};

}  // namespace Cpp
