// Disks that are full, directories that are gone: what the writer leaves and what it tells.
#include "base/file_failures.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <thread>

#include "base/text_reader.h"
#include "base/text_writer.h"
#include "support/scratch_directory.h"

namespace {

namespace fs = std::filesystem;

// Files of this process end at so many bytes while it lives.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) : handler_(::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit = {bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        ::signal(SIGXFSZ, handler_);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

  private:
    rlimit before_{};
    void (*handler_)(int);
};

class FailedWrites : public testing::Test {
  protected:
    std::string place(const std::string& name) const { return (scratch.path() / name).string(); }

    ScratchDirectory scratch;
    FileFailures failures;
};

}  // namespace

TEST_F(FailedWrites, AreNoneWhereEverythingCouldBeWritten) {
    const FileFailureScope scope(failures);
    writer_replace(place("a")).text("one\n");
    writer_append(place("a")).print("%d\n", 2);
    EXPECT_TRUE(failures.none());
    EXPECT_EQ(scratch.read("a"), "one\n2\n");
}

TEST_F(FailedWrites, OfAFullDiskAreSeenWhenTheSectionIsClosed) {
    fs::create_symlink("/dev/full", scratch.path() / "full");
    const FileFailureScope scope(failures);
    writer_append(place("full")).text("row\n");
    ASSERT_EQ(failures.files.size(), 1U);
    EXPECT_EQ(failures.files[0].path, place("full"));
    EXPECT_EQ(failures.files[0].error, ENOSPC);
}

TEST_F(FailedWrites, OfAFullDiskAreSeenInEveryWayOfWriting) {
    fs::create_symlink("/dev/full", scratch.path() / "full");
    const std::string piece(100000, 'x');
    for (int way = 0; way < 4; ++way) {
        FileFailures own;
        const FileFailureScope scope(own);
        {
            TextWriter out = writer_append(place("full"));
            for (int k = 0; k < 3; ++k) {
                if (way == 0) {
                    out.text(piece);
                } else if (way == 1) {
                    out.text(piece.c_str());
                } else if (way == 2) {
                    out.print("%s", piece.c_str());
                } else {
                    out.number("%.9999f", 1.0 / 3.0);
                }
            }
        }
        ASSERT_EQ(own.files.size(), 1U) << way;
        EXPECT_EQ(own.files[0].error, ENOSPC) << way;
    }
}

TEST_F(FailedWrites, OfAMissingDirectoryAreSeenWhenTheFileIsOpened) {
    const FileFailureScope scope(failures);
    writer_append(place("none/a")).text("x");
    writer_append(place("none/a")).text("x");
    writer_replace(place("none/b")).text("x");
    ASSERT_EQ(failures.files.size(), 2U);
    EXPECT_EQ(failures.files[0].path, place("none/a"));
    EXPECT_EQ(failures.files[0].error, ENOENT);
    EXPECT_EQ(failures.files[1].path, place("none/b"));
}

TEST_F(FailedWrites, TakeBackTheirSectionAndLetNoLaterOneFollow) {
    const FileFailureScope scope(failures);
    writer_append(place("rows")).text("first\n");
    {
        const FileSizeLimit limit(1000);
        writer_append(place("rows")).text(std::string(100, 's') + "\n");
        writer_append(place("rows")).text(std::string(2000, 't') + "\n");
    }
    writer_append(place("rows")).text("fourth\n");
    EXPECT_EQ(scratch.read("rows"), "first\n" + std::string(100, 's') + "\n");
    ASSERT_EQ(failures.files.size(), 1U);
    EXPECT_EQ(failures.files[0].error, EFBIG);
    // Other files are not concerned.
    writer_append(place("other")).text("fine\n");
    EXPECT_EQ(scratch.read("other"), "fine\n");
}

TEST_F(FailedWrites, TakeBackASectionThatIsLargerThanAnyBuffer) {
    const FileFailureScope scope(failures);
    const FileSizeLimit limit(300000);
    writer_append(place("rows")).text("first\n");
    {
        TextWriter out = writer_append(place("rows"));
        for (int row = 0; row < 10000; ++row) {
            out.print("%050d\n", row);
        }
    }
    EXPECT_EQ(scratch.read("rows"), "first\n");
}

TEST_F(FailedWrites, BelongToTheThreadAndToTheInnermostScope) {
    const FileFailureScope scope(failures);
    FileFailures inner;
    {
        const FileFailureScope nested(inner);
        writer_append(place("none/inner")).text("x");
    }
    std::thread([this] { writer_append(place("none/thread")).text("x"); }).join();
    EXPECT_TRUE(failures.none());
    EXPECT_EQ(inner.files.size(), 1U);
    writer_append(place("none/outer")).text("x");
    EXPECT_EQ(failures.files.size(), 1U);
}

TEST_F(FailedWrites, AreCountedWhenThereAreTooManyToTell) {
    for (int k = 0; k < 250; ++k) {
        note_file_failure(failures, std::to_string(k), EIO);
    }
    EXPECT_EQ(failures.files.size(), FileFailures::kMostFiles);
    EXPECT_EQ(failures.further, 250 - FileFailures::kMostFiles);
    EXPECT_FALSE(failures.none());
}

TEST_F(FailedWrites, AreTheOtherSideOfFilesThatCannotBeOpenedForReading) {
    const FileFailureScope scope(failures);
    EXPECT_FALSE(reader_open(place("none")).opened());
    ASSERT_EQ(failures.files.size(), 1U);
    EXPECT_EQ(failures.files[0].path, place("none"));
    EXPECT_EQ(failures.files[0].error, ENOENT);
    EXPECT_TRUE(failures.files[0].reading);
    writer_replace(place("some")).text("x");
    EXPECT_TRUE(reader_open(place("some")).opened());
    EXPECT_EQ(failures.files.size(), 1U);
}
