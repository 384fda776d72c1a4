// Formats standard input to standard output under the shipped scheme, with another indent in functions.
#include <corvane/format.h>

#include <iostream>
#include <iterator>

int main() {
    const std::string source{std::istreambuf_iterator<char>(std::cin), {}};
    corvane::Scheme scheme = corvane::Scheme::shipped("Corvane").value();
    if (!scheme.set("INDENT_FN_CONTENT", "  ")) return 2;
    try {
        const corvane::FormatResult result = corvane::format(source, scheme);
        for (const corvane::Message& message : result.messages) {
            std::cerr << "line " << message.line << ", column " << message.column << ": " << message.text << '\n';
        }
        std::cout << result.text;
        return result ? 0 : 1;
    } catch (const corvane::Error& error) {
        std::cerr << error.what() << '\n';
        return 2;
    }
}
