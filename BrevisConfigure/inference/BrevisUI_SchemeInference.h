// Finds the scheme under which the least of a code base changes. The code votes: under a scheme with all keys of white
// space each of them decides its places, and the value that most of these have is its value. Flags and anchors are
// tried one after the other on a sample. A key on which the code is of two minds stays unset.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "infer/Brevis_GapEvidence.h"
#include "inference/BrevisUI_Inference.h"
#include "inference/BrevisUI_TextStatistics.h"

namespace BrevisUI {

// Serves once. The texts must outlive it.
class SchemeInference {
public:
    SchemeInference(const std::vector<InferenceText>& texts, InferenceOptions options, InferenceHost host);

    InferenceResult run();

private:
    using Texts = std::vector<const InferenceText*>;
    using Runs = std::vector<std::optional<Brevis::GapEvidence>>;

    // Of the gaps that a value decides otherwise than its absence.
    struct Judgement {
        std::uint64_t places = 0;
        std::uint64_t agreeing = 0;       // with the value
        std::uint64_t agreeingUnset = 0;  // without it
    };

    // The stages
    void drawSample();
    void start();
    void readLines();
    void search();
    void settle();
    void settleTabs();
    void check();
    void toFirstEdition();

    // Votes
    void takeWinners(const Texts& texts);
    void noteVotes(std::size_t row, const Brevis::ValueVotes& votes);

    // Trials
    void judgeAnchors();
    void judgeFlags();
    void judgeFlag(const Brevis::PropertyInfo& row);
    void judgeNumber(const Brevis::PropertyInfo& row, std::span<const std::int32_t> values);
    Judgement judge(const Runs& unset, const Runs& set) const;
    void adopt(const Brevis::PropertySet& scheme, Runs runs);

    // Runs
    Runs runAll(const Texts& texts, const Brevis::PropertySet& scheme, Brevis::EvidenceWanted wanted);
    void forEach(const Texts& texts, const std::function<void(std::size_t, const InferenceText&)>& work);
    std::uint64_t changedLinesOf(const Texts& texts, const Brevis::PropertySet& scheme);

    // The whole code base
    void measure();
    bool dropHarmful();

    bool isAgreed(std::uint64_t agreeing, std::uint64_t places) const;
    KeyEvidence& evidenceOf(const Brevis::PropertyInfo& row);

    const InferenceOptions options_;
    const InferenceHost host_;

    Texts all_, sample_;
    double scale_ = 1;                 // all texts to the sample
    double spent_ = 0, expected_ = 1;  // bytes that were or will be formatted

    TextStatistics statistics_;
    Brevis::PropertySet scheme_;
    std::vector<KeyEvidence> evidence_;  // by row of the catalogue
    Runs base_;                          // of the sample under `scheme_`
    InferenceResult result_;
};

}  // namespace BrevisUI
