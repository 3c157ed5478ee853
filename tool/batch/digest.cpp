#include "batch/digest.h"

#include <fmt/core.h>

#include <array>

#include "base/open_file.h"
#include "formats/model_writer.h"

void Digest::add_byte(unsigned char byte) { state_ = (state_ ^ byte) * 1099511628211ULL; }

void Digest::add(std::string_view text) {
    for (const char each : std::to_string(text.size())) {
        add_byte(static_cast<unsigned char>(each));
    }
    add_byte(':');
    for (const char each : text) {
        add_byte(static_cast<unsigned char>(each));
    }
}

std::string Digest::text() const { return fmt::format("{:016x}", state_); }

const std::string& FileDigests::of(const std::string& path) {
    const auto place = files_.find(path);
    if (place != files_.end() || path.empty()) {
        return path.empty() ? path : place->second;
    }
    Digest digest;
    const FileHandle handle = open_file(path, "rb");
    std::array<char, 65536> block{};
    while (handle != nullptr) {
        const std::size_t count = std::fread(block.data(), 1, block.size(), handle.get());
        if (count == 0) {
            break;
        }
        digest.add({block.data(), count});
    }
    return files_[path] = handle != nullptr ? digest.text() : "absent";
}

void add_model(ModelFile model, FileDigests& files, Digest& digest) {
    digest.add(files.of(model.network.file));
    digest.add(files.of(model.network.nodes));
    digest.add(files.of(model.free_dyads));
    for (CovariateSource& source : model.covariates) {
        digest.add(files.of(source.file));
        source.file = "-";
    }
    // What is left says nothing of places.
    model.network.file = "-";
    model.network.nodes = model.network.nodes.empty() ? "" : "-";
    model.free_dyads = model.free_dyads.empty() ? "" : "-";
    model.settings.run.threads = 1;
    digest.add(model_text(model, ""));
}

std::string JobDigests::of(const Job& job) {
    Digest digest;
    digest.add(OVRI_VERSION);
    digest.add(plan_.networks[job.network].name);
    digest.add(plan_.models[job.model].name);
    add_model(job_model(plan_, job), files_, digest);
    return digest.text();
}
