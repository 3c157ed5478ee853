#include <algorithm>
#include <cmath>
#include <string_view>

#include "base/text_writer.h"
#include "check/checks.h"

namespace {

bool is_directed(const SetupView& view) {
    return view.setup.settings.network_kind == static_cast<int>(NetworkKind::directed);
}

bool is_mode(const SetupView& view, RunMode mode) {
    return view.setup.settings.run_mode == static_cast<int>(mode);
}

// The effects that are read from the trusted part of the file, in the order of their rows.
template <class Visit>
void for_each_structural(const SetupView& view, Visit visit) {
    const EffectSelection& selection = view.setup.selection;
    for (const int id : selection.catalogue->setup_order) {
        const StructuralEffect& effect = selection.catalogue->effects[static_cast<std::size_t>(id)];
        if (find_item(view, std::string(effect.row) + " value") != nullptr) {
            visit(effect, selection.structural[static_cast<std::size_t>(id)]);
        }
    }
}

// Effects whose whole value is 0 at a lambda of 1 too.
bool needs_more_than_one(std::string_view row) {
    return row == "Ain1outS" || row == "1inAoutS" || row == "AinAoutS";
}

void check_lambda(const SetupView& view, const StructuralEffect& effect,
                  const StructuralChoice& choice, Findings& findings) {
    const SetupItem* item = find_item(view, std::string(effect.row) + " lambda");
    if (item == nullptr || choice.position < 0) {
        return;
    }
    const std::string found = quoted(word_at(view, item->value_offset));
    if (!std::isfinite(choice.lambda)) {
        add_error(findings, where_item(view, *item), found, "a number of 1 or more",
                  "write a lambda; 2 is usual");
    } else if (choice.lambda < 1.0F) {
        add_warning(findings, where_item(view, *item), found, "a number of 1 or more",
                    "write a lambda of 1 or more (2 is usual): below 1 the effect is dead, its "
                    "statistic stays 0");
    } else if (choice.lambda == 1.0F && needs_more_than_one(effect.row)) {
        add_warning(findings, where_item(view, *item), found, "a number above 1",
                    "write a lambda above 1: at 1 this effect's statistic is 0");
    }
}

void check_value(const SetupView& view, const std::string& field, double value,
                 Findings& findings) {
    const SetupItem* item = find_item(view, field);
    if (item != nullptr && !std::isfinite(value)) {
        add_error(findings, where_item(view, *item), quoted(word_at(view, item->value_offset)),
                  "a finite number",
                  "write a parameter value: no proposal would ever be judged by this one");
    }
}

// The draws of a Bayesian fit go to the values that are not exactly 0, in their order.
void check_draw_place(const SetupView& view, const std::string& name, bool selected, double value,
                      Findings& findings) {
    const SetupItem* item = find_item(view, name + " value");
    if (item == nullptr || selected == (value != 0.0)) {
        return;
    }
    if (is_mode(view, RunMode::bayesian_fit)) {
        add_warning(
            findings, where_item(view, *item),
            selected ? "the value 0 of a selected effect"
                     : quoted(word_at(view, item->value_offset)) + " for an effect that is off",
            selected ? "the estimate, not exactly 0" : "0",
            "draws are handed to the values that are not exactly 0, in their order: the draws of "
            "this and the following effects would go to others");
    } else if (!selected && is_mode(view, RunMode::estimation) &&
               view.setup.settings.gof_after_estimation == 1) {
        add_warning(findings, where_item(view, *item),
                    quoted(word_at(view, item->value_offset)) + " for an effect that is off", "0",
                    "the fit after the estimation uses this value: write 0 unless it is meant");
    }
}

// Calls visit(name, choice) for the rows of each attribute and covariate.
template <class Visit>
void for_each_attribute_row(const SetupView& view, Visit visit) {
    const char* names[] = {"binary attribute", "continuous attribute", "categorical attribute",
                           "covariate"};
    const EffectSelection& selection = view.setup.selection;
    for (const AttributeGroup group : kAllGroups) {
        const AttributeSelection& chosen = group_of(selection, group);
        const AttributeGroupCatalogue& rows = group_catalogue(*selection.catalogue, group);
        for (int attribute = 0; attribute < chosen.attributes; ++attribute) {
            for (const int row : rows.setup_order) {
                const auto r = static_cast<std::size_t>(row);
                const std::string update = rows.effects[r].update;
                const std::string name = std::string(names[static_cast<std::size_t>(group)]) + " " +
                                         std::to_string(attribute + 1) + ": " +
                                         text_with_name(update.c_str(), "");
                if (find_item(view, name + " value") != nullptr) {
                    visit(name, chosen.choices[r][static_cast<std::size_t>(attribute)], group,
                          update);
                }
            }
        }
    }
}

void warn_out_of_step(const SetupView& view, const std::string& name, const char* found,
                      const char* mend, Findings& findings) {
    add_warning(findings, where_field(view, name + " flag"), found, "a model without it", mend);
}

// A fit on the full model holds the values of most continuous effects one or two places away.
void check_knot_of_fit(const SetupView& view, const std::string& name, Findings& findings) {
    const bool full_model =
        is_mode(view, RunMode::bayesian_fit) ||
        (is_mode(view, RunMode::estimation) && view.setup.settings.gof_after_estimation == 1);
    if (full_model && !name.empty()) {
        add_warning(findings, where_field(view, name + " flag"),
                    "a directed continuous effect in a fit on the full model",
                    "sender, receiver, their missing counts and diff alone",
                    "the full model has a sum, for which parameters have no place: the fit applies "
                    "this effect's value to another statistic");
    }
}

// The parameter vector of a directed continuous attribute has no place for "sum" and holds
// "prod_reciprocity" twice, so what stands behind them is moved.
void check_knot(const SetupView& view, Findings& findings) {
    if (!is_directed(view)) {
        return;
    }
    bool diff = false;
    bool prod = false;
    std::string moved;
    for_each_attribute_row(view, [&](const std::string& name, const AttributeChoice& choice,
                                     AttributeGroup group, const std::string& update) {
        if (group != AttributeGroup::continuous || choice.flag != 1) {
            return;
        }
        diff = diff || update == "%s_diff";
        prod = prod || update == "%s_prod";
        const bool sum = update == "%s_sum";
        const bool keeps_place = update.starts_with("%s_sender") ||
                                 update.starts_with("%s_receiver") || update == "%s_diff";
        moved = keeps_place || !moved.empty() ? moved : name;
        if (sum || update == "%s_prod_reciprocity") {
            warn_out_of_step(
                view, name,
                sum ? "a continuous sum, which has a statistic but no place among the parameters"
                    : "a continuous prod_reciprocity, whose parameter is held twice",
                sum ? "parameters and statistics get out of step: the log names each estimate "
                      "rightly, but in starting values and update files the sum's place goes to "
                      "the next effect and all behind it move by one; leave it out (sender and "
                      "receiver together say the same)"
                    : "parameters and statistics get out of step: the starting values of "
                      "categorical attributes and covariates move by one place, since this one "
                      "stands before them a second time; estimates in the log and in the update "
                      "files keep their places; leave it out",
                findings);
        }
    });
    check_knot_of_fit(view, moved, findings);
    if (diff && prod) {
        add_warning(findings, {view.path, 0, "continuous attributes"},
                    "a continuous diff and a prod", "one of the two",
                    "parameters and statistics get out of step: the log names each estimate "
                    "rightly, but starting values and update files exchange the two; leave one "
                    "out");
    }
}

void check_size(const SetupView& view, Findings& findings) {
    if (all_trusted(view) && selection_size(view.setup.selection) == 0) {
        add_warning(findings, {view.path, 0, "model"}, "no effect selected",
                    "a flag of 1 for at least one effect",
                    "select an effect; without one every proposal is accepted and nothing is "
                    "estimated");
    }
}

bool any_selected(const SetupView& view, std::initializer_list<const char*> rows) {
    bool selected = false;
    for_each_structural(view, [&](const StructuralEffect& effect, const StructuralChoice& choice) {
        selected = selected || (choice.position >= 0 &&
                                std::any_of(rows.begin(), rows.end(), [&effect](const char* row) {
                                    return std::string_view(row) == effect.row;
                                }));
    });
    return selected;
}

// Statistics that no proposal of the kind can change make an estimation degenerate.
void check_still_statistics(const SetupView& view, Findings& findings) {
    const SetupItem* item = find_item(view, "proposal kind");
    if (item == nullptr || !is_mode(view, RunMode::estimation)) {
        return;
    }
    const int kind = view.setup.settings.proposal_kind;
    const bool swap = kind == 1;
    const bool sender_swap = is_directed(view) && kind == 2;
    if ((swap || sender_swap) && any_selected(view, {"edge", "arc"})) {
        add_warning(findings, where_item(view, *item),
                    "a swap proposal, and the number of ties among the effects",
                    "a model without \"edge\" or \"arc\"",
                    "leave the effect out or let single dyads be toggled (0): a swap keeps the "
                    "number of ties, so its estimation is degenerate");
    }
    if (sender_swap && any_selected(view, {"out2star", "out-3-star", "AoutS", "AoutS2"})) {
        add_warning(findings, where_item(view, *item),
                    "the sender swap, and an effect of out-degrees alone",
                    "a model without out2star, out-3-star, AoutS and AoutS2",
                    "leave the effect out or choose another proposal: a sender swap keeps every "
                    "out-degree, so its estimation is degenerate");
    }
}

}  // namespace

void check_model(const SetupView& view, Findings& findings) {
    if (view.setup.selection.catalogue == nullptr) {
        return;
    }
    for_each_structural(view, [&](const StructuralEffect& effect, const StructuralChoice& choice) {
        const std::string name = effect.row;
        check_lambda(view, effect, choice, findings);
        if (choice.position >= 0) {
            check_value(view, name + " value", choice.value, findings);
        }
        check_draw_place(view, name, choice.position >= 0, choice.value, findings);
    });
    for_each_attribute_row(view, [&](const std::string& name, const AttributeChoice& choice,
                                     AttributeGroup, const std::string&) {
        if (choice.flag == 1) {
            check_value(view, name + " value", choice.value, findings);
        }
        check_draw_place(view, name, choice.flag == 1, choice.value, findings);
    });
    check_knot(view, findings);
    check_size(view, findings);
    check_still_statistics(view, findings);
}
