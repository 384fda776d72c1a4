// What the file job asks of the program that runs it.
#pragma once

#include <string>

#include "BrevisUI_LineEnds.h"
#include "BrevisUI_Messages.h"
#include "Brevis_Formatter.h"

namespace BrevisUI {

class LineSet;

class FormatHost {
public:
    virtual ~FormatHost() = default;

    // One message without a line end, its severity one of BrevisUI::Severity. The host filters and shows it.
    virtual void send(const std::string& text, int severity) = 0;
    // The same for a message about a place in a file.
    virtual void sendPlaced(const std::string& path, const Trn::ParseMessage& message) {
        send(parseMessageLine(path, message), message.severity);
    }
    // Lets waiting events act, such as a press of the cancel button.
    virtual void letUserInterfaceRun() {}
    // A text that must not be overlooked. The job sends it as a message too.
    virtual void alert(const std::string& /*text*/) {}

    // Whether a file is copied before it is written over, and the extension of the copy, without a dot.
    virtual bool createBackups() const = 0;
    virtual std::string backupExtension() const = 0;

    // Whether a text whose tokens differ from those of its source is refused.
    virtual bool verifyTokens() const { return true; }
    // Whether a text that a second run would change again is warned about. It costs that second run.
    virtual bool verifyStability() const { return false; }

    // The lines to which the changes of a file are limited; null for all. Their tokens are then always checked.
    virtual const LineSet* chosenLines(const std::string& /*path*/) const { return nullptr; }

    // How texts are read. A file whose name ends in ".c" is C, unless a language is chosen here.
    virtual Brevis::Reading reading() const { return {}; }

    // The line ends of formatted texts.
    virtual LineEndMode lineEnds() const { return LineEndMode::Keep; }

    // Called, behind the messages, for a file that hasn't got its new text. Its job may have ended well before.
    virtual void onWriteFailed(const std::string& /*path*/) {}

    // Called once for each text that was formatted, and accepted by the writer if the job writes it. For one that
    // hasn't changed, too.
    virtual void onFormatted(const std::string& /*path*/, const Brevis::FormatResult& /*result*/) {}
};

}  // namespace BrevisUI
