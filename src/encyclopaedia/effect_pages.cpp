#include "encyclopaedia/page_tables.h"

#include <array>
#include <cmath>

const char* family_name(Family family) {
    switch (family) {
        case Family::ties:
            return "ties and reciprocity";
        case Family::degrees:
            return "degrees and stars";
        case Family::actors:
            return "kinds of actors";
        case Family::paths:
            return "paths and rings";
        case Family::closure:
            return "closure: triangles and triads";
        case Family::cliques:
            return "cliques";
        case Family::triangle_pairs:
            return "pairs of triangles";
        case Family::triangle_ties:
            return "triangles with further ties";
    }
    return "";
}

double lambda_weight(WeightLaw law, double lambda, int k) {
    const double w = 1.0 - 1.0 / lambda;
    switch (law) {
        case WeightLaw::rising:
            return lambda * (1.0 - std::pow(w, k - 1));
        case WeightLaw::falling:
            return std::pow(w, k - 1);
        case WeightLaw::alternating:
            return std::pow(-1.0 / lambda, k - 4);
        case WeightLaw::none:
            break;
    }
    return 0.0;
}

const char* source_text(Source source) {
    constexpr std::array<const char*, kSources> kTexts = {
        "",
        "Davis, J. A. & Leinhardt, S. (1972). The structure of positive interpersonal relations in "
        "small groups. In Berger, Zelditch & Anderson (eds.), Sociological Theories in Progress 2.",
        "Frank, O. & Strauss, D. (1986). Markov graphs. Journal of the American Statistical "
        "Association 81, 832-842.",
        "Holland, P. W. & Leinhardt, S. (1981). An exponential family of probability distributions "
        "for directed graphs. Journal of the American Statistical Association 76, 33-50.",
        "Hunter, D. R. (2007). Curved exponential family models for social networks. Social "
        "Networks 29, 216-230.",
        "Hunter, D. R. & Handcock, M. S. (2006). Inference in curved exponential family models for "
        "networks. Journal of Computational and Graphical Statistics 15, 565-583.",
        "Lusher, D., Koskinen, J. & Robins, G. (eds., 2013). Exponential Random Graph Models for "
        "Social Networks. Cambridge University Press.",
        "Morris, M., Handcock, M. S. & Hunter, D. R. (2008). Journal of Statistical Software "
        "24(4).",
        "Pattison, P. & Robins, G. (2002). Neighborhood-based models for social networks. "
        "Sociological Methodology 32, 301-337.",
        "Robins, G., Elliott, P. & Pattison, P. (2001). Network models for social selection "
        "processes. Social Networks 23, 1-30.",
        "Robins, G., Pattison, P. & Wang, P. (2009). Closure, connectivity and degree "
        "distributions: exponential random graph (p*) models for directed social networks. Social "
        "Networks 31, 105-117.",
        "Snijders, T. A. B., Pattison, P. E., Robins, G. L. & Handcock, M. S. (2006). New "
        "specifications for exponential random graph models. Sociological Methodology 36, 99-153.",
        "Wasserman, S. & Pattison, P. (1996). Logit models and logistic regressions for social "
        "networks: I. An introduction to Markov graphs and p*. Psychometrika 61, 401-425."};
    return kTexts[static_cast<std::size_t>(source)];
}

const char* change_notation(NetworkKind kind) {
    return kind == NetworkKind::undirected
               ? "i, j: the actors of the new tie, without which every letter of the change is "
                 "meant; L_k: "
                 "sets of k common neighbours of i and j that are all tied; sum_k: over the actors "
                 "other than i and j"
               : "i, j: the sender and the receiver of the new arc, without which every letter of "
                 "the change is meant; sum_k: over the actors other than i and j";
}

std::span<const EffectPage> structural_pages(NetworkKind kind) {
    return kind == NetworkKind::undirected ? graph_pages() : digraph_pages();
}

std::span<const EffectPage> attribute_pages(NetworkKind kind, AttributeGroup group) {
    return kind == NetworkKind::undirected ? graph_attribute_pages(group)
                                           : digraph_attribute_pages(group);
}
