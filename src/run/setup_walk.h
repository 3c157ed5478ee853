// The order of a setup file, for whoever reads or writes one.
//
// What stands behind an item may depend on its value, so reader and writer go through the file in
// the same steps and differ in what they do at an item alone. A visitor has, for the types int,
// float, double and std::string,
//     bool item(const SetupKey& key, Value& value)
// which brings the value to or from the file and returns whether that could be done, and
//     void check_count(int count)
// which may refuse a number of attributes before room is made for them.
#pragma once

#include "run/setup_file.h"

template <class Visitor>
class SetupWalk {
  public:
    SetupWalk(SetupFile& setup, Visitor& visitor)
        : settings_(setup.settings), selection_(setup.selection), visitor_(visitor) {}

    void head() {
        for (const SetupItem& item : setup_items()) {
            if (item.part == SetupPart::head && stands(item)) {
                visit_run_item(item);
            }
        }
    }

    // Behind the head; its mode and kind are known and the selection is of that kind.
    void body() {
        const auto mode = static_cast<RunMode>(settings_.run_mode);
        for (const SetupItem& item : setup_items()) {
            if (item.part == SetupPart::body && has_mode(item.modes, mode) && stands(item)) {
                visit_run_item(item);
            }
        }
    }

  private:
    // By the item before it.
    bool stands(const SetupItem& item) const {
        return item.lead == SetupLead::label || (item.lead == SetupLead::if_read && could_read_) ||
               (item.lead == SetupLead::if_on && last_number_ == 1);
    }

    template <class Value>
    bool visit(const SetupKey& key, Value& value) {
        could_read_ = visitor_.item(key, value);
        if constexpr (std::is_same_v<Value, int>) {
            last_number_ = value;
        }
        return could_read_;
    }

    // A flag that stands for a truth kept elsewhere: true when it is 1 afterwards.
    bool visit_flag(const SetupKey& key, bool on) {
        int flag = on ? 1 : 0;
        visit(key, flag);
        return flag == 1;
    }

    void visit_run_item(const SetupItem& item) {
        std::visit([this, &item](auto member) { visit_member(item.id, member); }, item.member);
    }
    template <class Value>
    void visit_member(SetupId id, Value RunSettings::*member) {
        visit(id, settings_.*member);
    }
    template <class Value>
    void visit_member(SetupId id, Value EstimationSettings::*member) {
        visit(id, settings_.estimation.*member);
    }
    void visit_member(SetupId id, bool OutputSwitches::*member) {
        settings_.switches.*member = visit_flag(id, settings_.switches.*member);
    }
    void visit_member(SetupId id, std::monostate) {
        if (id == SetupId::structural_section) {
            visit(id, selection_.structural_flag);
            if (selection_.structural_flag == 1) {
                structural_rows();
            }
        } else if (id == SetupId::attribute_section) {
            attribute_blocks();
            block(AttributeGroup::covariate);
        }
    }

    void structural_rows() {
        for (const int id : selection_.catalogue->setup_order) {
            const auto index = static_cast<std::size_t>(id);
            StructuralChoice& choice = selection_.structural[index];
            int flag = choice.position >= 0 ? 1 : 0;
            if (visit({SetupId::structural_flag, id}, flag) &&
                visit({SetupId::structural_value, id}, choice.value) &&
                selection_.catalogue->effects[index].traits.alternating) {
                visit({SetupId::structural_lambda, id}, choice.lambda);
            }
            if (flag == 1 && choice.position < 0) {
                choice.position = selection_.structural_count++;
            }
        }
    }

    void attribute_blocks() {
        constexpr std::array kBlocks = {AttributeGroup::binary, AttributeGroup::continuous,
                                        AttributeGroup::categorical};
        bool any = false;
        for (const AttributeGroup group : kBlocks) {
            any = any || group_of(selection_, group).flag == 1;
        }
        if (visit_flag(SetupId::attribute_section, any)) {
            for (const AttributeGroup group : kBlocks) {
                block(group);
            }
        }
    }

    void block(AttributeGroup group) {
        AttributeSelection& chosen = group_of(selection_, group);
        visit({SetupId::group_section, group}, chosen.flag);
        if (chosen.flag != 1) {
            return;
        }
        visit({SetupId::group_count, group}, chosen.attributes);
        // A block ends at a count of 0; that of undirected covariates has its file all the same.
        if (chosen.attributes != 0 || (group == AttributeGroup::covariate &&
                                       selection_.catalogue->kind == NetworkKind::undirected)) {
            visit({SetupId::group_file, group}, chosen.path);
            visitor_.check_count(chosen.attributes);
            block_rows(group, chosen);
        }
    }

    void block_rows(AttributeGroup group, AttributeSelection& chosen) {
        if (static_cast<int>(chosen.choices.front().size()) != chosen.attributes) {
            selection_resize_group(selection_, group, chosen.attributes);
        }
        chosen.selected = 0;
        for (int attribute = 0; attribute < chosen.attributes; ++attribute) {
            for (const int row : group_catalogue(*selection_.catalogue, group).setup_order) {
                AttributeChoice& choice = chosen.choices[static_cast<std::size_t>(row)]
                                                        [static_cast<std::size_t>(attribute)];
                if (visit({SetupId::group_flag, group, row, attribute}, choice.flag)) {
                    visit({SetupId::group_value, group, row, attribute}, choice.value);
                }
                chosen.selected += choice.flag == 1 ? 1 : 0;
            }
        }
    }

    RunSettings& settings_;
    EffectSelection& selection_;
    Visitor& visitor_;
    bool could_read_ = false;
    int last_number_ = 0;
};
