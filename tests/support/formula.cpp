#include "support/formula.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstddef>
#include <map>
#include <stdexcept>

namespace {

class Evaluation {
  public:
    Evaluation(const std::string& text, const FormulaData& data)
        : text_(text), data_(data), n_(static_cast<int>(data.ties.size())) {}

    // Binds i and j; sums leave them out from now on.
    void bind(int i, int j) {
        places_ = {{'i', i}, {'j', j}};
        bound_ = {i, j};
    }

    double whole() {
        const double value = sum_of_terms();
        if (at_ != text_.size()) {
            fail("an end");
        }
        return value;
    }

  private:
    [[noreturn]] void fail(const std::string& expected) const {
        throw std::invalid_argument(text_ + " at " + std::to_string(at_) + ": expected " +
                                    expected);
    }
    void skip_blanks() {
        while (at_ < text_.size() && text_[at_] == ' ') {
            ++at_;
        }
    }
    bool next_is(const std::string& token) {
        skip_blanks();
        return text_.compare(at_, token.size(), token) == 0;
    }
    bool take(const std::string& token) {
        if (!next_is(token)) {
            return false;
        }
        at_ += token.size();
        return true;
    }
    void expect(const std::string& token) {
        if (!take(token)) {
            fail(token);
        }
    }

    double sum_of_terms() {
        double value = take("-") ? -product() : product();
        for (;;) {
            if (take("+")) {
                value += product();
            } else if (take("-")) {
                value -= product();
            } else {
                return value;
            }
        }
    }

    bool at_factor() {
        skip_blanks();
        if (at_ >= text_.size() || (text_[at_] == '|' && inside_bars_)) {
            return false;
        }
        return std::string(")]},+-=!>").find(text_[at_]) == std::string::npos;
    }

    double product() {
        double value = factor();
        for (;;) {
            if (take("/")) {
                value /= factor();
            } else if (at_factor()) {
                value *= factor();
            } else {
                return value;
            }
        }
    }

    double factor() {
        const double base = atom();
        return take("^") ? std::pow(base, atom()) : base;
    }

    double atom() {
        if (take("(")) {
            const double value = sum_of_terms();
            expect(")");
            return value;
        }
        if (take("|")) {
            inside_bars_ = true;
            const double value = sum_of_terms();
            inside_bars_ = false;
            expect("|");
            return std::fabs(value);
        }
        if (take("[")) {
            return condition();
        }
        if (take("C(")) {
            const double from = sum_of_terms();
            expect(",");
            const double chosen = sum_of_terms();
            expect(")");
            return choose(from, static_cast<int>(chosen));
        }
        if (take("sum_")) {
            return sum_over(indices());
        }
        return std::isdigit(static_cast<unsigned char>(text_[at_])) != 0 ? number() : symbol();
    }

    double condition() {
        const double left = sum_of_terms();
        const bool equal = take("=");
        const bool unequal = !equal && take("!=");
        if (!equal && !unequal) {
            expect(">");
        }
        const double right = sum_of_terms();
        expect("]");
        const bool holds = equal ? left == right : unequal ? left != right : left > right;
        return holds ? 1.0 : 0.0;
    }

    static double choose(double from, int chosen) {
        double value = 1.0;
        for (int step = 0; step < chosen; ++step) {
            value *= (from - step) / (step + 1);
        }
        return value;
    }

    double number() {
        std::size_t length = 0;
        const double value = std::stod(text_.substr(at_), &length);
        at_ += length;
        return value;
    }

    struct Indices {
        std::string letters;
        bool ascending = false;
    };
    Indices indices() {
        if (!take("{")) {
            return {std::string(1, text_[at_++]), false};
        }
        Indices read;
        while (!take("}")) {
            read.letters += text_[at_++];
            read.ascending = take("<") || read.ascending;
            take(",");
        }
        return read;
    }

    double sum_over(const Indices& indices) {
        const std::size_t body = at_;
        double value = 0.0;
        each_assignment(indices, 0, [&] {
            at_ = body;
            value += product();
        });
        return value;
    }

    template <class Visit>
    void each_assignment(const Indices& indices, std::size_t depth, Visit visit) {
        if (depth == indices.letters.size()) {
            visit();
            return;
        }
        for (int actor = 0; actor < n_; ++actor) {
            bool allowed = std::find(bound_.begin(), bound_.end(), actor) == bound_.end();
            for (std::size_t before = 0; before < depth; ++before) {
                const int other = places_[indices.letters[before]];
                allowed = allowed && (indices.ascending ? other < actor : other != actor);
            }
            if (allowed) {
                places_[indices.letters[depth]] = actor;
                each_assignment(indices, depth + 1, visit);
            }
        }
    }

    double symbol() {
        if (take("λ")) {
            return data_.lambda;
        }
        if (take("w")) {
            return 1.0 - 1.0 / data_.lambda;
        }
        if (take("v")) {
            return 1.0 - 1.0 / (data_.lambda - 1.0);
        }
        std::string name;
        while (at_ < text_.size() && text_[at_] != '_') {
            name += text_[at_++];
        }
        expect("_");
        if (name == "K") {
            return cliques(static_cast<int>(number()), 0, {});
        }
        if (name == "L" && !bound_.empty()) {
            return cliques(static_cast<int>(number()), 0, bound_);
        }
        const int i = index();
        const bool of_pair =
            name.size() == 1 && std::string("xyprsc").find(name) != std::string::npos;
        return of_pair ? pair_symbol(name[0], i, index()) : actor_symbol(name, i);
    }

    int index() {
        const auto found = places_.find(text_[at_++]);
        if (found == places_.end()) {
            fail("an index of a sum");
        }
        return found->second;
    }

    int tied(int i, int j) const {
        return data_.ties[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
    }
    template <class Term>
    double over_actors(Term term) const {
        double value = 0.0;
        for (int k = 0; k < n_; ++k) {
            value += term(k);
        }
        return value;
    }

    double pair_symbol(char name, int i, int j) const {
        switch (name) {
            case 'x':
                return tied(i, j);
            case 'y':
                return tied(i, j) * tied(j, i);
            case 'p':
                return over_actors([&](int k) { return tied(i, k) * tied(k, j); });
            case 's':
                return over_actors([&](int k) { return tied(k, i) * tied(k, j); });
            case 'r':
                return over_actors([&](int k) { return tied(i, k) * tied(j, k); });
            default:
                return data_.covariate[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
        }
    }

    double actor_symbol(const std::string& name, int i) const {
        if (name == "d" || name == "out") {
            return over_actors([&](int k) { return tied(i, k); });
        }
        if (name == "in") {
            return over_actors([&](int k) { return tied(k, i); });
        }
        if (name == "m") {
            return over_actors([&](int k) { return tied(i, k) * tied(k, i); });
        }
        if (name == "t") {
            return over_actors([&](int k) { return tied(i, k) * pair_symbol('p', i, k) / 2.0; });
        }
        if (name == "a") {
            return data_.values[static_cast<std::size_t>(i)];
        }
        if (name == "u") {
            return data_.missing[static_cast<std::size_t>(i)];
        }
        fail("a letter of the notation");
    }

    // Sets of `size` further actors from `first` on, all tied to each other and to the members.
    double cliques(int size, int first, const std::vector<int>& members) const {
        if (size == 0) {
            return 1.0;
        }
        double found = 0.0;
        for (int actor = first; actor < n_; ++actor) {
            bool all = true;
            for (const int member : members) {
                all = all && tied(member, actor) != 0;
            }
            if (all) {
                std::vector<int> larger = members;
                larger.push_back(actor);
                found += cliques(size - 1, actor + 1, larger);
            }
        }
        return found;
    }

    const std::string& text_;
    const FormulaData& data_;
    int n_;
    std::size_t at_ = 0;
    bool inside_bars_ = false;
    std::map<char, int> places_;
    std::vector<int> bound_;
};

}  // namespace

double formula_value(const std::string& formula, const FormulaData& data) {
    return Evaluation(formula, data).whole();
}

double change_formula_value(const std::string& formula, const FormulaData& data, int i, int j) {
    Evaluation evaluation(formula, data);
    evaluation.bind(i, j);
    return evaluation.whole();
}
