#include "effects/catalogue.h"

OutputText output_text(const Labels& labels, const NumberFormats& formats, Output output) {
    switch (output) {
        case Output::parameter:
            return {labels.parameter, "%.5f"};
        case Output::simulation:
            return {labels.simulation, formats.simulation};
        case Output::syntax:
            return {labels.syntax, formats.syntax};
        case Output::result:
            return {labels.result, "%f\t%.5f\t%.5f"};
        case Output::fit_parameter:
            return {labels.fit_parameter, formats.fit_parameter};
        case Output::fit:
            return {labels.fit, formats.fit};
        case Output::bayes_fit:
            return {labels.fit, formats.bayes_fit};
        case Output::report:
            return {labels.report, formats.report};
        case Output::change:
            return {labels.change, "%lf\t"};
        case Output::trace:
            return {labels.trace != nullptr ? labels.trace : labels.syntax, formats.syntax};
    }
    return {nullptr, nullptr};
}

const Catalogue& catalogue_of(NetworkKind kind) {
    return kind == NetworkKind::directed ? digraph_catalogue() : graph_catalogue();
}
