// The one place that knows what stands in a setup file.
//
// A setup file is read by position, so an item is its place: the order of this table is the order
// of the file. Reader, writer, checks and the tables of docs/setup_file.md loop over it; none of
// them spells an item's name. The rows of effects are the catalogue's, in its setup order.
#pragma once

#include <span>
#include <string>
#include <variant>

#include "base/run_mode.h"
#include "effects/catalogue.h"
#include "run/run_settings.h"

enum class SetupId {
    network_name,
    output_directory,
    proposal_kind,
    run_mode,
    network_kind,
    actor_count,
    density,
    network_file,
    degree_cap_flag,
    degree_cap,
    structural_section,
    structural_flag,  // the three of each structural row
    structural_value,
    structural_lambda,
    attribute_section,
    group_section,  // the three of each attribute block and of the covariate block
    group_count,
    group_file,
    group_flag,  // the two of each row of a block
    group_value,
    covariance_file,
    free_dyads_flag,
    free_dyads_file,
    sub_phases,
    a_value,
    multiplication_factor,
    phase3_steps,
    estimation_runs,
    gof_after_estimation,
    sample_graphs,
    degree_distribution,
    geodesic_distribution,
    cluster_giant,
    triangle_distribution,
    two_path_distribution,
    et_distribution,
    burn_in,
    iterations,
    sample_count
};

// A flag and a switch are whole numbers that count as on when they are exactly 1; a count tells how
// many blocks of rows follow.
enum class SetupValue { line, number, real, flag, count };

constexpr bool is_whole_number(SetupValue value) {
    return value != SetupValue::line && value != SetupValue::real;
}

// How an item stands behind the one before it in the file.
enum class SetupLead {
    label,    // behind a label of its own
    if_read,  // without a label, and only when the number before could be read
    if_on     // without a label, and only when the number before is 1
};

// Which part of the file an item belongs to. Rows and blocks come once per effect or group.
enum class SetupPart { head, body, structural_row, block, block_row };

// The member that an item fills. Items of the model have none here: which one they fill depends on
// their row.
using SetupMember =
    std::variant<std::monostate, std::string RunSettings::*, int RunSettings::*,
                 float RunSettings::*, double RunSettings::*, bool OutputSwitches::*,
                 int EstimationSettings::*, float EstimationSettings::*>;

struct SetupItem {
    SetupId id;
    // As messages and pages call it; "%s" stands for the effect's row or the block.
    const char* name;
    SetupValue value;
    SetupLead lead;
    SetupPart part;
    RunModes modes;
    SetupMember member;
    // Which values make sense, where not every value does; else null.
    const char* range;
    const char* meaning;
};

std::span<const SetupItem> setup_items();
const SetupItem& setup_item(SetupId id);

// One item of one file: its id and, for items of the model, whose it is.
struct SetupKey {
    SetupId id;
    AttributeGroup group = AttributeGroup::binary;
    // An effect's id in the catalogue, or its row in the group's catalogue.
    int row = -1;
    // From 0.
    int attribute = -1;

    // NOLINTNEXTLINE(google-explicit-constructor): most items are their id.
    constexpr SetupKey(SetupId item) : id(item) {}
    constexpr SetupKey(SetupId item, int effect) : id(item), row(effect) {}
    constexpr SetupKey(SetupId item, AttributeGroup of, int effect = -1, int number = -1)
        : id(item), group(of), row(effect), attribute(number) {}
    bool operator==(const SetupKey&) const = default;
};

// "binary attribute", .. , "covariate".
const char* group_name(AttributeGroup group);

// "binary attribute 1": whose row it is.
std::string attribute_of(const SetupKey& key);

// The effect of a row as update files label it, with `name` in the place of an attribute's name.
std::string setup_effect(const SetupKey& key, const Catalogue& catalogue, const std::string& name);

// The item's name in full: "edge value", "binary attribute 1: _activity flag", "covariate count",
// "burn-in". Only items of the model ask for a catalogue.
std::string setup_name(const SetupKey& key, const Catalogue* catalogue);
