#include "support/setup_text.h"

#include <cstdio>

namespace {

std::string number(double value) {
    std::array<char, 64> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.9g", value);
    return buffer.data();
}

class Lines {
  public:
    void add(const std::string& label, const std::string& value) {
        text += label;
        text += " ";
        text += value;
        text += "\n";
    }
    void add(const std::string& label, int value) { add(label, std::to_string(value)); }
    std::string text;
};

const ModelTerm* term_of(const SetupText& setup, std::string_view row) {
    for (const ModelTerm& term : setup.effects) {
        if (term.row == row) {
            return &term;
        }
    }
    return nullptr;
}

void add_structural(Lines& lines, const SetupText& setup) {
    lines.add("Structural_effects", setup.structural ? 1 : 0);
    if (!setup.structural) {
        return;
    }
    const Catalogue& catalogue = catalogue_of(setup.kind);
    for (const int id : catalogue.setup_order) {
        const StructuralEffect& effect = catalogue.effects[static_cast<std::size_t>(id)];
        const ModelTerm* term = term_of(setup, effect.row);
        std::string value = term != nullptr ? "1 " : "0 ";
        value += number(term != nullptr ? term->value : 0.0);
        if (effect.traits.alternating) {
            value += " ";
            value += number(term != nullptr ? static_cast<double>(term->lambda) : 2.0);
        }
        lines.add(effect.row, value);
    }
}

void add_estimation(Lines& lines, const SetupText& setup) {
    lines.add("Sub_phases", setup.sub_phases);
    lines.add("A_value", setup.a_value);
    lines.add("Multiplication_factor", setup.factor);
    lines.add("Phase_3_steps", setup.phase3_steps);
    lines.add("Estimation_runs", setup.runs);
    lines.add("Fit_after_estimation", setup.fit);
}

void add_sampling(Lines& lines, const SetupText& setup) {
    for (const int value : setup.switches) {
        lines.add("Switch", value);
    }
    lines.add("Burn_in", setup.burn_in);
    if (setup.mode != 4) {
        lines.add("Iterations", setup.iterations);
    }
    lines.add("Samples", setup.samples);
}

}  // namespace

std::string setup_text(const SetupText& setup) {
    Lines lines;
    lines.add("Network_name", setup.name);
    lines.add("Output_directory", setup.directory);
    lines.add("Proposal_kind", setup.proposal);
    std::string mode = std::to_string(setup.mode);
    mode += setup.kind == NetworkKind::directed ? " 2" : " 1";
    lines.add("Run_mode_and_network_kind", mode);
    lines.add("Actors", setup.actors);
    if (setup.mode == 1) {
        lines.add("Density", setup.density);
    } else {
        lines.add("Network_file", setup.network);
    }
    lines.add("Degree_cap", setup.cap > 0 ? 1 : 0);
    if (setup.cap > 0) {
        lines.text += std::to_string(setup.cap) + "\n";
    }
    add_structural(lines, setup);
    lines.text += setup.attributes;
    lines.text += setup.covariates;
    if (setup.mode == 4) {
        lines.add("Covariance_file", setup.covariance);
    }
    lines.add("Free_dyads", setup.free_dyads.empty() ? 0 : 1);
    if (!setup.free_dyads.empty()) {
        lines.text += setup.free_dyads + "\n";
    }
    if (setup.mode == 2) {
        add_estimation(lines, setup);
    } else {
        add_sampling(lines, setup);
    }
    return lines.text;
}
