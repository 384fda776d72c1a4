// The tables of a soak.
#include "Soak_Tally.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <iomanip>
#include <ostream>
#include <sstream>
#include <vector>

namespace Soak {

namespace {

using Fuzz::Verdict;

constexpr Verdict verdicts[] = {Verdict::Settled, Verdict::Unstable, Verdict::Refused, Verdict::Lost, Verdict::Failed};
constexpr std::size_t mostCauses = 60;
constexpr std::size_t mostTexts = 5;
constexpr std::size_t longestText = 1500;

const char* nameOf(Verdict verdict) {
    switch (verdict) {
        case Verdict::Settled:
            return "settled";
        case Verdict::Unstable:
            return "unstable";
        case Verdict::Refused:
            return "refused";
        case Verdict::Lost:
            return "lost";
        case Verdict::Failed:
            break;
    }
    return "failed";
}

std::string percent(std::size_t part, std::size_t whole) {
    std::ostringstream text;
    text << std::fixed << std::setprecision(2) << 100.0 * static_cast<double>(part) / static_cast<double>(whole) << '%';
    return text.str();
}

std::string fileName(const std::string& cause) {
    constexpr std::size_t longest = 100;
    std::string name;
    for (const char c : cause.substr(0, longest)) {
        const bool isPlain = std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
        if (isPlain || !name.ends_with('-')) name += isPlain ? c : '-';
    }
    return name;
}

bool isSmaller(const Sample& sample, const Sample& other) {
    const std::size_t size = sample.text.size();
    return size != other.text.size() ? size < other.text.size() : sample.scheme.count() < other.scheme.count();
}

void printSample(std::ostream& out, const Sample& sample) {
    std::ostringstream scheme;
    sample.scheme.write(scheme);
    std::istringstream lines(scheme.str());
    std::string line;
    for (int head = 0; head < 3; ++head) std::getline(lines, line);
    if (sample.scheme.count() <= 8) {
        while (std::getline(lines, line)) out << "        " << line << '\n';
    }
    std::istringstream text(sample.text.substr(0, longestText));
    while (std::getline(text, line)) out << "      | " << line << '\n';
}

}  // namespace

void Tally::countPair(const std::string& group, const std::string& directory, Verdict verdict) {
    for (Counts* counts : {&groups_[group], &directories_[directory]}) {
        ++counts->pairs;
        ++counts->byVerdict[verdict];
    }
}

void Tally::countCause(Verdict verdict, const Diagnosis& diagnosis, const std::string& example) {
    Cause& cause = causes_[verdict][diagnosis.cause];
    if (++cause.count == 1) cause.example = example;
    if (!diagnosis.smallest || (cause.smallest && !isSmaller(*diagnosis.smallest, *cause.smallest))) return;
    cause.smallest = diagnosis.smallest;
    write(verdict, diagnosis.cause, *diagnosis.smallest);
}

void Tally::write(Verdict verdict, const std::string& cause, const Sample& sample) const {
    const std::string name = nameOf(verdict) + ("-" + fileName(cause));
    std::ofstream(folder_ / (name + ".in"), std::ios::binary) << sample.text;
    std::ofstream scheme(folder_ / (name + ".fsc"), std::ios::binary);
    sample.scheme.write(scheme);
}

void Tally::print(std::ostream& out) const {
    printCounts(out);
    for (const Verdict verdict : {Verdict::Lost, Verdict::Failed, Verdict::Unstable, Verdict::Refused})
        printCauses(out, verdict);
}

void Tally::printCounts(std::ostream& out) const {
    out << std::left << std::setw(48) << "" << std::right << std::setw(8) << "pairs";
    for (const Verdict verdict : verdicts) out << std::setw(18) << nameOf(verdict);
    out << '\n';
    for (const auto* groups : {&groups_, &directories_}) {
        for (const auto& [name, counts] : *groups) {
            out << std::left << std::setw(48) << name << std::right << std::setw(8) << counts.pairs;
            for (const Verdict verdict : verdicts) {
                const auto at = counts.byVerdict.find(verdict);
                const std::size_t count = at == counts.byVerdict.end() ? 0 : at->second;
                out << std::setw(8) << count << std::setw(10) << percent(count, counts.pairs);
            }
            out << '\n';
        }
    }
}

void Tally::printCauses(std::ostream& out, Verdict verdict) const {
    const auto found = causes_.find(verdict);
    if (found == causes_.end()) {
        out << "\nNothing " << nameOf(verdict) << ".\n";
        return;
    }
    std::vector<std::pair<std::string, const Cause*>> causes;
    std::size_t all = 0;
    for (const auto& [name, cause] : found->second) {
        causes.emplace_back(name, &cause);
        all += cause.count;
    }
    std::stable_sort(causes.begin(), causes.end(),
                     [](const auto& a, const auto& b) { return a.second->count > b.second->count; });
    out << '\n' << all << ' ' << nameOf(verdict) << ", " << causes.size() << " causes:\n";
    for (std::size_t i = 0; i < causes.size(); ++i) {
        const auto& [name, cause] = causes[i];
        const bool isShown = i < mostCauses || verdict == Verdict::Lost || verdict == Verdict::Failed;
        if (!isShown) continue;
        out << std::setw(7) << cause->count << std::setw(9) << percent(cause->count, all) << "  " << name << "\n"
            << "                  " << cause->example << '\n';
        const bool showsText = verdict != Verdict::Refused && (i < mostTexts || verdict != Verdict::Unstable);
        if (showsText && cause->smallest) printSample(out, *cause->smallest);
    }
    if (causes.size() > mostCauses && verdict != Verdict::Lost) out << "  and rarer ones\n";
}

}  // namespace Soak
