// One pair after the other until the time or the number of pairs is up.
#include "Soak_Runner.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <ostream>
#include <utility>

#include "Fuzz_SchemeDrawer.h"
#include "scheme/Brevis_PropertyCatalogue.h"

namespace Soak {

namespace {

namespace fs = std::filesystem;

// The speed of a shorter text tells nothing.
constexpr std::size_t shortestMeasured = 4096;

std::string readFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The seed of one pair, so that neighbours share nothing.
std::uint64_t mix(std::uint64_t seed, std::uint64_t number) {
    std::uint64_t x = seed * 0x9E3779B97F4A7C15 + number;
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EB;
    return x ^ (x >> 31);
}

// A tab of a million columns only shows how much memory there is.
void limitTabSize(Brevis::PropertySet& scheme) {
    constexpr std::int32_t largest = 64;
    std::int32_t size = 0;
    if (scheme.getInt(Brevis::Catalogue::keyOf(&Brevis::Scheme::tabSize), size) && size > largest)
        scheme.setInt(Brevis::Catalogue::keyOf(&Brevis::Scheme::tabSize), largest);
}

// Whether a value is of the kind that nobody would write: a line feed in an indent, other white space than the usual.
bool isOdd(const Brevis::PropertySet& scheme) {
    const auto isOddValue = [&scheme](const Brevis::PropertyInfo& info) {
        std::string value;
        scheme.getString(info.key, value);
        const bool isIndent = info.type == Brevis::PropertyType::Indent;
        return value.find_first_of(isIndent ? "\n\r\f\v" : "\r\f\v") != std::string::npos;
    };
    return std::any_of(std::begin(Brevis::Catalogue::properties), std::end(Brevis::Catalogue::properties), isOddValue);
}

double seconds(std::chrono::steady_clock::duration time) { return std::chrono::duration<double>(time).count(); }

double speed(std::size_t bytes, std::chrono::steady_clock::duration time) {
    return static_cast<double>(bytes) / 1e6 / seconds(time);
}

}  // namespace

Runner::Runner(Settings settings, std::vector<Directory> directories, std::vector<Brevis::PropertySet> shipped)
    : settings_(std::move(settings)),
      directories_(std::move(directories)),
      shipped_(std::move(shipped)),
      causes_(settings_.shrinks),
      tally_(settings_.folder) {}

void Runner::run() {
    begin_ = Clock::now();
    for (; !isOver(done_); ++done_) runPair(draw(settings_.first + done_));
    fs::remove(settings_.folder / "current.txt");
}

bool Runner::isOver(std::uint64_t done) const {
    if (settings_.pairs > 0 && done >= settings_.pairs) return true;
    return settings_.minutes > 0 && seconds(Clock::now() - begin_) >= settings_.minutes * 60;
}

// Every directory has the same share, however many files it holds.
Runner::Pair Runner::draw(std::uint64_t number) const {
    Fuzz::SeededDraws draws(mix(settings_.seed, number));
    Pair pair;
    pair.number = number;
    pair.directory = &directories_[draws.below(static_cast<unsigned>(directories_.size()))];
    const auto& sources = pair.directory->sources;
    pair.path = sources[draws.below(static_cast<unsigned>(sources.size()))];
    if (!settings_.shippedOnly && draws.below(4) != 0) {
        pair.scheme = Fuzz::drawScheme(draws);
        limitTabSize(pair.scheme);
        pair.group = isOdd(pair.scheme) ? "drawn schemes with odd values" : "drawn schemes";
        return pair;
    }
    pair.scheme = shipped_[draws.below(static_cast<unsigned>(shipped_.size()))];
    const bool wraps = draws.below(2) != 0;
    pair.scheme.setBool(Brevis::Catalogue::keyOf(&Brevis::Scheme::lineWrap), wraps);
    if (wraps)
        pair.scheme.setInt(Brevis::Catalogue::keyOf(&Brevis::Scheme::rightMargin),
                           static_cast<std::int32_t>(60 + draws.below(61)));
    pair.group = wraps ? "shipped schemes, lines wrapped" : "shipped schemes as they are";
    return pair;
}

void Runner::runPair(const Pair& pair) {
    noteCurrent(pair);
    const Sample sample{readFile(pair.path), pair.scheme, settings_.reading};
    files_.insert(pair.path.string());
    const Clock::time_point begin = Clock::now();
    const Fuzz::Trial trial = Fuzz::tryText(sample.scheme, sample.text, true, sample.reading);
    measure(pair, sample.text.size(), Clock::now() - begin);
    seams_ += trial.seams;
    if (trial.seams > 0) ++mendedTexts_;
    tally_.countPair(pair.group, pair.directory->name, trial.verdict);
    if (trial.verdict == Fuzz::Verdict::Settled) return;

    std::string example = "pair " + std::to_string(pair.number) + ", " + pair.path.string();
    if (!trial.messages.empty()) example += ':' + std::to_string(trial.messages.front().position.line);
    if (!trial.complaint.empty()) example += ": " + trial.complaint;
    const Diagnosis diagnosis = causes_.diagnose(sample, findingOf(sample, trial));
    tally_.countCause(trial.verdict, diagnosis, example);
}

void Runner::noteCurrent(const Pair& pair) const {
    std::ofstream(settings_.folder / "current.txt")
        << "seed " << settings_.seed << ", pair " << pair.number << ", " << pair.path.string() << '\n';
}

void Runner::measure(const Pair& pair, std::size_t size, Clock::duration time) {
    bytes_ += size;
    time_ += time;
    if (size < shortestMeasured) return;
    const double measured = speed(size, time);
    if (!slowest_.empty() && measured >= slowestSpeed_) return;
    slowestSpeed_ = measured;
    slowest_ = "pair " + std::to_string(pair.number) + ", " + pair.path.string();
}

void Runner::report(std::ostream& out) const {
    out << "Seed " << settings_.seed << ": " << done_ << " pairs of " << files_.size() << " files and schemes in "
        << static_cast<int>(seconds(Clock::now() - begin_)) << " s\n";
    if (done_ == 0) return;
    out << bytes_ / 1'000'000 << " MB at " << speed(bytes_, time_)
        << " MB/s, two runs and all checks included; the slowest at " << slowestSpeed_ << " MB/s: " << slowest_ << '\n'
        << seams_ << " seams mended in " << mendedTexts_ << " texts\n\n";
    tally_.print(out);
}

}  // namespace Soak
