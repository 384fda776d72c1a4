// The target of the whole engine.
#include "Fuzz_SchemeDrawer.h"
#include "Fuzz_Targets.h"
#include "Fuzz_Trial.h"

namespace Fuzz {

void fuzzPipeline(std::string_view data) {
    const Input input = splitInput(data);
    ByteDraws draws(input.choices);
    const Brevis::PropertySet scheme = drawScheme(draws);
    for (const auto dialect : {Brevis::DialectChoice::classic, Brevis::DialectChoice::modern}) {
        const Trial trial = tryText(scheme, input.text, false, {dialect});
        require(trial.verdict == Verdict::Refused || trial.verdict == Verdict::Settled, trial.complaint);
    }
}

}  // namespace Fuzz
