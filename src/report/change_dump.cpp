#include "report/change_dump.h"

#include <cmath>

#include "base/matrix.h"
#include "base/text_writer.h"

void change_statistics_dump(Graph& graph, const EffectSelection& selection,
                            const ActiveModel<Graph>& model, const std::vector<double>& parameters,
                            const std::string& change_path, const std::string& odds_path) {
    const int n = graph.vertices;
    const std::vector<OutputRow> columns = output_rows(selection, Output::change);
    std::vector<double> change(parameters.size(), 0.0);
    Matrix log_odds = matrix_create(n, n, 0.0);
    {
        TextWriter out = writer_replace(change_path);
        out.text("i j obs ");
        for (const OutputRow& column : columns) {
            out.text(column.label);
        }
        out.text("\n");
        for (int i = 0; i < n; ++i) {
            for (int j = i + 1; j < n; ++j) {
                const int tied = graph_has_edge(graph, i, j) ? 1 : 0;
                evaluate_toggle(graph, model, parameters.data(), change.data(), i, j, 1 - tied);
                out.print("%d %d %d\t", i, j, tied);
                double sum = 0.0;
                for (const OutputRow& column : columns) {
                    const auto place = static_cast<std::size_t>(column.position);
                    out.number(column.format, change[place]);
                    sum += parameters[place] * change[place];
                }
                out.text("\n");
                log_odds[i][j] = sum;
                log_odds[j][i] = sum;
            }
        }
    }
    TextWriter out = writer_replace(odds_path);
    for (int i = 0; i < n; ++i) {
        for (int j = 0; j < n; ++j) {
            out.print("%lf\t", std::exp(log_odds[i][j]));
        }
        out.text("\n");
    }
}
