// What the preview shows when, and its buttons.
#include "qt/BrevisUI_PreviewPane.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSplitter>
#include <QStringDecoder>
#include <QVBoxLayout>
#include <algorithm>

#include "BrevisUI_Files.h"
#include "editor/BrevisUI_Preview.h"
#include "editor/BrevisUI_TextMoves.h"
#include "qt/BrevisUI_CodeView.h"
#include "qt/BrevisUI_Translated.h"

namespace BrevisUI {

namespace {

// Source text as characters, and where its bytes are among them. A text that isn't UTF-8 is taken as Latin-1, so that
// none of it is lost to the eye.
class Characters {
public:
    explicit Characters(std::string_view bytes) : bytes_(bytes) {
        QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        text_ = decoder.decode(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
        isUtf8_ = !decoder.hasError();
        if (!isUtf8_) text_ = QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
    }

    const QString& text() const { return text_; }
    // Of an offset that is not in front of the one asked for last.
    int at(std::size_t offset) {
        for (; byte_ < std::min(offset, bytes_.size()); ++byte_) {
            const auto byte = static_cast<unsigned char>(bytes_[byte_]);
            constexpr unsigned char continuation = 0x80, mask = 0xC0, fourBytes = 0xF0;
            if (isUtf8_ && (byte & mask) == continuation) continue;
            character_ += isUtf8_ && byte >= fourBytes ? 2 : 1;
        }
        return character_;
    }

private:
    std::string_view bytes_;
    QString text_;
    bool isUtf8_ = true;
    std::size_t byte_ = 0;
    int character_ = 0;
};

// White space alone is hard to see, and at the end of a line not at all, so that a mark goes on over what it has moved:
// a word or a single sign.
int endOfMark(const QString& text, int end) {
    const auto isWord = [&](int at) { return at < text.size() && (text[at].isLetterOrNumber() || text[at] == u'_'); };
    if (isWord(end)) {
        while (isWord(end)) ++end;
        return end;
    }
    return std::min(end + 1, static_cast<int>(text.size()));
}

std::vector<CodeView::Stretch> marksOf(Characters& characters, const std::vector<TextRange>& ranges) {
    std::vector<CodeView::Stretch> marks;
    for (const TextRange& range : ranges) {
        const int begin = characters.at(range.begin);
        marks.push_back({begin, endOfMark(characters.text(), characters.at(range.end)) - begin});
    }
    return marks;
}

}  // namespace

PreviewPane::PreviewPane(const StylesDlgModel& model, const PreviewFont& font, Dialogs& dialogs, QWidget* parent)
    : QWidget(parent),
      model_(model),
      dialogs_(dialogs),
      source_(new QLabel(this)),
      status_(new QLabel(this)),
      sampleButton_(new QPushButton(tr("Use Samp&le"), this)),
      originalSwitch_(new QCheckBox(tr("Show o&riginal"), this)),
      original_(new CodeView(this)),
      formatted_(new CodeView(this)) {
    auto* ownFileButton = new QPushButton(tr("Own &File..."), this);
    ownFileButton->setToolTip(tr("Shows a file of yours in place of the sample. The file itself stays as it is."));
    ownFileButton->setObjectName(QStringLiteral("ownFile"));
    originalSwitch_->setToolTip(tr("Shows the text as it was beside the formatted one."));
    originalSwitch_->setObjectName(QStringLiteral("showOriginal"));
    sampleButton_->setObjectName(QStringLiteral("useSample"));
    status_->setWordWrap(true);
    status_->setTextFormat(Qt::PlainText);
    status_->setObjectName(QStringLiteral("previewStatus"));
    source_->setTextFormat(Qt::PlainText);
    source_->setBuddy(formatted_);
    original_->setAccessibleName(tr("Original text"));
    formatted_->setAccessibleName(tr("Preview"));
    formatted_->setObjectName(QStringLiteral("preview"));
    original_->setObjectName(QStringLiteral("original"));

    auto* panes = new QSplitter(this);
    panes->setChildrenCollapsible(false);
    for (CodeView* view : {original_, formatted_}) {
        view->setCodeFont(font);
        panes->addWidget(view);
    }
    auto* head = new QHBoxLayout;
    head->addWidget(source_, 1);
    head->addWidget(originalSwitch_);
    head->addWidget(ownFileButton);
    head->addWidget(sampleButton_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(head);
    column->addWidget(panes, 1);
    column->addWidget(status_);
    setTabOrder(originalSwitch_, ownFileButton);
    setTabOrder(ownFileButton, sampleButton_);
    setTabOrder(sampleButton_, original_);
    setTabOrder(original_, formatted_);

    original_->hide();
    showSample();
    connect(originalSwitch_, &QCheckBox::toggled, original_, &QWidget::setVisible);
    connect(ownFileButton, &QPushButton::clicked, this, &PreviewPane::chooseOwnFile);
    connect(sampleButton_, &QPushButton::clicked, this, [this] {
        showSample();
        redraw();
    });
}

void PreviewPane::redraw() {
    if (ownFile_) {
        redrawOwnFile();
        return;
    }
    const StylesBasePage& page = model_.sheet().activePage();
    const Preview preview = previewOf(page, model_.sheet().scheme(), model_.samples());
    showTabSize(preview.tabSize);
    const auto sample = model_.samples().find(page.previewName());
    show(sample == model_.samples().end() ? std::string() : sample->second, preview.text,
         preview.kind == Preview::Kind::Code);
}

void PreviewPane::redrawOwnFile() {
    const OwnTextPreview preview = previewOfOwnText(ownFile_->path, ownFile_->text, model_.sheet().scheme());
    showTabSize(preview.tabSize);
    show(preview.given, preview.text, preview.isFormatted);
    if (preview.isFormatted) {
        status_->setText(tr("This scheme changes %1 of %2 lines.").arg(preview.changedLines).arg(preview.lines));
    } else {
        status_->setText(tr("This file can't be formatted:") + u'\n' + toQt(preview.message));
    }
}

void PreviewPane::showTabSize(std::optional<std::int32_t> tabSize) {
    if (!tabSize) return;
    for (CodeView* view : {original_, formatted_}) {
        if (view->tabColumns() != *tabSize) view->setTabColumns(*tabSize);
    }
}

void PreviewPane::show(const std::string& before, const std::string& after, bool isCode) {
    const bool isSameText = isCode && !lastAfter_.empty() && before == lastBefore_;
    Characters characters(after);
    std::vector<CodeView::Stretch> marks;
    if (isSameText) marks = marksOf(characters, movedRanges(lastAfter_, after));
    formatted_->showCode(characters.text(), marks);
    if (before != lastBefore_) original_->showCode(Characters(before).text());
    lastBefore_ = before;
    lastAfter_ = isCode ? after : std::string();
}

void PreviewPane::forgetMoves() { lastAfter_.clear(); }

void PreviewPane::chooseOwnFile() {
    const FileChoice choice{
        .filter = "C++ Source Files|*.c;*.cc;*.cpp;*.cxx;*.h;*.hh;*.hpp;*.hxx||", .laterFilter = "", .directory = ""};
    const std::vector<std::string> paths = dialogs_.chooseFiles(this, choice);
    if (!paths.empty()) showOwnFile(paths.front());
}

void PreviewPane::showOwnFile(const std::string& path) {
    std::string text;
    if (!readFile(path, text)) {
        dialogs_.tell(this, Dialogs::Icon::Warning, fromQt(tr("The file \"%1\" can't be read.").arg(pathToQt(path))));
        return;
    }
    ownFile_ = OwnFile{path, std::move(text)};
    source_->setText(QFileInfo(pathToQt(path)).fileName());
    source_->setToolTip(pathToQt(path));
    sampleButton_->show();
    status_->show();
    redraw();
}

void PreviewPane::showSample() {
    ownFile_.reset();
    source_->setText(tr("Preview"));
    source_->setToolTip(QString());
    sampleButton_->hide();
    status_->hide();
}

}  // namespace BrevisUI
