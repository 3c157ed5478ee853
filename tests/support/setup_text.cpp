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

struct Block {
    AttributeGroup group;
    const char* name;
    int attributes;
};

void add_rows(Lines& lines, NetworkKind kind, const Block& block, int flag,
              const std::string& value) {
    const AttributeGroupCatalogue& rows = group_catalogue(catalogue_of(kind), block.group);
    std::string choice = std::to_string(flag);
    choice += " ";
    choice += value;
    for (int attribute = 0; attribute < block.attributes; ++attribute) {
        for (std::size_t row = 0; row < rows.setup_order.size(); ++row) {
            lines.add("Effect", choice);
        }
    }
}

}  // namespace

std::string attribute_section(NetworkKind kind, int flag, const std::string& value) {
    Lines lines;
    lines.add("Attributes", 1);
    for (const Block& block : {Block{AttributeGroup::binary, "binary", 1},
                               Block{AttributeGroup::continuous, "continuous", 2},
                               Block{AttributeGroup::categorical, "categorical", 1}}) {
        lines.add("Section", 1);
        lines.text += std::to_string(block.attributes) + "\n";
        std::string file = block.name;
        file += ".txt";
        lines.add("File", file);
        add_rows(lines, kind, block, flag, value);
    }
    return lines.text;
}

std::string covariate_section(NetworkKind kind, int flag, const std::string& value) {
    Lines lines;
    lines.add("Covariates", 1);
    lines.text += "1\n";
    lines.add("File", "covariates.txt");
    add_rows(lines, kind, {AttributeGroup::covariate, "covariates", 1}, flag, value);
    return lines.text;
}

std::map<std::string, std::string> attribute_files(int actors) {
    std::map<std::string, std::string> files = {{"binary.txt", "member\n"},
                                                {"continuous.txt", "age,income\n"},
                                                {"categorical.txt", "office\n"},
                                                {"covariates.txt", "distance\n"}};
    for (int i = 0; i < actors; ++i) {
        files["binary.txt"] += std::to_string(i % 2) + "\n";
        files["continuous.txt"] += std::to_string(i + 20) + ".5\t" + std::to_string(i * i) + "\n";
        files["categorical.txt"] += std::to_string(1 + i % 3) + "\n";
        for (int j = 0; j < actors; ++j) {
            files["covariates.txt"] += std::to_string((i - j) * (i - j)) + "\t";
        }
        files["covariates.txt"] += "\n";
    }
    return files;
}

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
