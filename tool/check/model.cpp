#include <algorithm>
#include <cmath>
#include <iterator>
#include <span>
#include <vector>

#include "check/checks.h"

namespace {

// One row of the sound part of the file: its effect, as it was read.
struct Row {
    SetupKey key;  // of the value
    bool selected;
    double value;

    SetupKey flag() const {
        SetupKey flag = key;
        flag.id = key.id == SetupId::group_value ? SetupId::group_flag : SetupId::structural_flag;
        return flag;
    }
};

// Structural effects, then those of attributes and covariates, in the order of their rows.
std::vector<Row> read_rows(const SetupView& view) {
    const EffectSelection& selection = view.setup.selection;
    std::vector<Row> rows;
    for (std::size_t k = 0; k < view.sound_items; ++k) {
        const ReadItem& item = view.trace.items[k];
        const auto row = static_cast<std::size_t>(item.key.row);
        if (item.key.id == SetupId::structural_value && item.read) {
            const StructuralChoice& choice = selection.structural[row];
            rows.push_back({item.key, choice.position >= 0, choice.value});
        } else if (item.key.id == SetupId::group_value && item.read) {
            const AttributeChoice& choice =
                group_of(selection, item.key.group)
                    .choices[row][static_cast<std::size_t>(item.key.attribute)];
            rows.push_back({item.key, choice.flag == 1, choice.value});
        }
    }
    return rows;
}

bool is_structural(const Row& row) { return row.key.id == SetupId::structural_value; }

// Whether the row is one of these structural effects of the view's kind.
bool is_one_of(const Row& row, std::initializer_list<int> effects) {
    return is_structural(row) &&
           std::find(effects.begin(), effects.end(), row.key.row) != effects.end();
}

// Effects whose whole value is 0 at a lambda of 1 too.
bool needs_more_than_one(const SetupView& view, const Row& row) {
    using namespace digraph_effect;
    return is_directed(view) && is_one_of(row, {kAinAoutS, kAin1outS, k1inAoutS});
}

void check_lambda(const SetupView& view, const Row& row, Findings& findings) {
    const ReadItem* item = find_item(view, {SetupId::structural_lambda, row.key.row});
    if (item == nullptr || !row.selected) {
        return;
    }
    const float lambda =
        view.setup.selection.structural[static_cast<std::size_t>(row.key.row)].lambda;
    const std::string found = quoted_value(view, *item);
    const char* range = setup_item(SetupId::structural_lambda).range;
    // Nothing can be estimated from a statistic that stays 0.
    const auto add_dead = is_mode(view, RunMode::estimation) ? add_error : add_warning;
    if (!std::isfinite(lambda)) {
        add_error(findings, where_item(view, *item), found, range, "write a lambda; 2 is usual");
    } else if (lambda < 1.0F) {
        add_dead(findings, where_item(view, *item), found, range,
                 "write a lambda of 1 or more (2 is usual): below 1 the effect is dead, its "
                 "statistic stays 0");
    } else if (lambda == 1.0F && needs_more_than_one(view, row)) {
        add_dead(findings, where_item(view, *item), found, "a number above 1",
                 "write a lambda above 1: at 1 this effect's statistic is 0");
    }
}

void check_value(const SetupView& view, const Row& row, Findings& findings) {
    const ReadItem& item = *find_item(view, row.key);
    if (row.selected && !std::isfinite(row.value)) {
        add_error(findings, where_item(view, item), quoted_value(view, item), "a finite number",
                  "write a parameter value: no proposal would ever be judged by this one");
    }
}

// The draws of a Bayesian fit go to the values that are not exactly 0, in their order.
void check_draw_place(const SetupView& view, const Row& row, Findings& findings) {
    const ReadItem& item = *find_item(view, row.key);
    if (row.selected == (row.value != 0.0)) {
        return;
    }
    if (is_mode(view, RunMode::bayesian_fit)) {
        add_warning(
            findings, where_item(view, item),
            row.selected ? "the value 0 of a selected effect"
                         : quoted_value(view, item) + " for an effect that is off",
            row.selected ? "the estimate, not exactly 0" : "0",
            "draws are handed to the values that are not exactly 0, in their order: the draws of "
            "this and the following effects would go to others");
    } else if (!row.selected && is_mode(view, RunMode::estimation) &&
               view.setup.settings.gof_after_estimation == 1) {
        add_warning(findings, where_item(view, item),
                    quoted_value(view, item) + " for an effect that is off", "0",
                    "the fit after the estimation uses this value: write 0 unless it is meant");
    }
}

// The group's rows in the order in which values leave the parameter vector and enter it. Where it
// is not the order of the statistics, estimates and starting values stand at a neighbour's.
const AttributeGroupCatalogue& places_of(const SetupView& view, const Row& row) {
    return group_catalogue(*view.trace.catalogue, row.key.group);
}

auto times_among(std::span<const int> places, const Row& row) {
    return std::count(places.begin(), places.end(), row.key.row);
}

bool keeps_place_in_full_model(const SetupView& view, const Row& row) {
    const std::span<const int> places = places_of(view, row).store_order;
    const auto index = static_cast<std::size_t>(row.key.row);
    return index < places.size() && places[index] == row.key.row;
}

// Whether the two rows, the first before the second in the file, change places among the
// parameters.
bool are_exchanged(const SetupView& view, const Row& first, const Row& second) {
    const std::span<const int> places = places_of(view, first).store_order;
    const auto place = std::find(places.begin(), places.end(), first.key.row);
    return first.key.group == second.key.group && first.key.row < second.key.row &&
           place != places.end() && std::find(places.begin(), place, second.key.row) != place;
}

// "sum".
std::string plain_name(const SetupView& view, const Row& row) {
    const std::string name = setup_effect(row.key, *view.trace.catalogue, "");
    return name.substr(name.starts_with("_") ? 1 : 0);
}

void warn_out_of_step(const SetupView& view, const Row& row, Findings& findings) {
    const AttributeGroupCatalogue& places = places_of(view, row);
    const std::string what = "a continuous " + plain_name(view, row);
    if (times_among(places.store_order, row) == 0) {
        add_warning(findings, where_key(view, row.flag()),
                    what + ", which has a statistic but no place among the parameters",
                    "a model without it",
                    "parameters and statistics get out of step: the log names each estimate "
                    "rightly, but in starting values and update files the sum's place goes to the "
                    "next effect and all behind it move by one; leave it out (sender and receiver "
                    "together say the same)");
    } else if (times_among(places.assembly_order, row) > 1) {
        add_warning(findings, where_key(view, row.flag()), what + ", whose parameter is held twice",
                    "a model without it",
                    "parameters and statistics get out of step: the starting values of categorical "
                    "attributes and covariates move by one place, since this one stands before "
                    "them a second time; estimates in the log and in the update files keep their "
                    "places; leave it out");
    }
}

// A fit on the full model holds the values of most directed continuous effects one or two places
// away.
void warn_moved_in_full_model(const SetupView& view, const Row& row, Findings& findings) {
    add_warning(
        findings, where_key(view, row.flag()),
        "a directed continuous effect in a fit on the full model",
        "sender, receiver, their missing counts and diff alone",
        "the full model has a sum, for which parameters have no place: the fit applies this "
        "effect's value to another statistic");
}

// The fit takes its parameters from where the estimation stored them.
void warn_shifted_fit(const SetupView& view, const Row& row, Findings& findings) {
    add_warning(findings, where_key(view, SetupId::gof_after_estimation),
                "a fit after the estimation of a continuous " + plain_name(view, row),
                "a fit of a model without it",
                "the log names the estimates rightly, but the fit runs at shifted parameters: this "
                "effect's goes to the next one, and all behind it move by one. Its report says "
                "nothing of the estimated model; leave the effect out or set the flag to 0");
}

bool has_full_model(const SetupView& view) {
    return is_mode(view, RunMode::bayesian_fit) ||
           (is_mode(view, RunMode::estimation) && view.setup.settings.gof_after_estimation == 1);
}

// Parameters that do not stand where their statistics do.
void check_places(const SetupView& view, const std::vector<Row>& rows, Findings& findings) {
    std::vector<Row> selected;
    std::copy_if(rows.begin(), rows.end(), std::back_inserter(selected),
                 [](const Row& row) { return row.selected && !is_structural(row); });
    for (const Row& row : selected) {
        warn_out_of_step(view, row, findings);
    }
    const auto moved = std::find_if(selected.begin(), selected.end(), [&view](const Row& row) {
        return !keeps_place_in_full_model(view, row);
    });
    if (has_full_model(view) && moved != selected.end()) {
        warn_moved_in_full_model(view, *moved, findings);
    }
    const auto unplaced = std::find_if(selected.begin(), selected.end(), [&view](const Row& row) {
        return times_among(places_of(view, row).store_order, row) == 0;
    });
    if (is_mode(view, RunMode::estimation) && has_full_model(view) && unplaced != selected.end()) {
        warn_shifted_fit(view, *unplaced, findings);
    }
    for (const Row& first : selected) {
        const auto second = std::find_if(selected.begin(), selected.end(), [&](const Row& row) {
            return are_exchanged(view, first, row);
        });
        if (second != selected.end()) {
            add_warning(
                findings, {view.path, 0, "continuous attributes"},
                "a continuous " + plain_name(view, first) + " and a " + plain_name(view, *second),
                "one of the two",
                "parameters and statistics get out of step: the log names each estimate "
                "rightly, but starting values and update files exchange the two; leave one "
                "out");
            return;
        }
    }
}

void check_size(const SetupView& view, Findings& findings) {
    if (is_sound(view) && selection_size(view.setup.selection) == 0) {
        add_warning(findings, {view.path, 0, "model"}, "no effect selected",
                    "a flag of 1 for at least one effect",
                    "select an effect; without one every proposal is accepted and nothing is "
                    "estimated");
    }
}

bool any_selected(const std::vector<Row>& rows, std::initializer_list<int> effects) {
    return std::any_of(rows.begin(), rows.end(),
                       [&](const Row& row) { return row.selected && is_one_of(row, effects); });
}

// Statistics that no proposal of the kind can change make an estimation degenerate.
void check_still_statistics(const SetupView& view, const std::vector<Row>& rows,
                            Findings& findings) {
    using namespace digraph_effect;
    const ReadItem* item = find_item(view, SetupId::proposal_kind);
    if (item == nullptr || !is_mode(view, RunMode::estimation)) {
        return;
    }
    const int kind = view.setup.settings.proposal_kind;
    const bool swap = kind == 1;
    const bool sender_swap = is_directed(view) && kind == 2;
    if ((swap || sender_swap) &&
        any_selected(rows, {is_directed(view) ? kArc : graph_effect::kEdge})) {
        add_warning(findings, where_item(view, *item),
                    "a swap proposal, and the number of ties among the effects",
                    "a model without \"edge\" or \"arc\"",
                    "leave the effect out or let single dyads be toggled (0): a swap keeps the "
                    "number of ties, so its estimation is degenerate");
    }
    if (sender_swap && any_selected(rows, {kOut2star, kOut3star, kAoutS, kAoutS2})) {
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
    const std::vector<Row> rows = read_rows(view);
    for (const Row& row : rows) {
        if (is_structural(row)) {
            check_lambda(view, row, findings);
        }
        check_value(view, row, findings);
        check_draw_place(view, row, findings);
    }
    check_places(view, rows, findings);
    check_size(view, findings);
    check_still_statistics(view, rows, findings);
}
