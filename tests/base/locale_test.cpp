// The host may run under any locale: what is read and written must not depend on it.
#include <gtest/gtest.h>
#include <langinfo.h>
#include <locale.h>

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "base/text_reader.h"
#include "base/text_writer.h"
#include "support/scratch_directory.h"

namespace {

// Puts the process under a locale whose decimal point is a comma: an installed one, or one built
// for the occasion with the C library's own compiler of locales.
class CommaLocale {
  public:
    CommaLocale() {
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "nl_NL.UTF-8"}) {
            if (std::setlocale(LC_ALL, name) != nullptr && has_comma()) {
                return;
            }
        }
        directory_.write("comma.source",
                         "LC_NUMERIC\n"
                         "decimal_point \"<U002C>\"\n"
                         "thousands_sep \"\"\n"
                         "grouping -1\n"
                         "END LC_NUMERIC\n");
        const std::string place = directory_.path().string();
        const std::string command =
            "localedef -c -i '" + place + "/comma.source' '" + place + "/xx_XX' >/dev/null 2>&1";
        // Its status tells of the categories that the source leaves out, so only the result counts.
        static_cast<void>(!std::system(command.c_str()));
        ::setenv("LOCPATH", place.c_str(), 1);
        std::setlocale(LC_NUMERIC, "xx_XX");
    }
    ~CommaLocale() {
        ::unsetenv("LOCPATH");
        std::setlocale(LC_ALL, "C");
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    static bool has_comma() { return std::string(std::localeconv()->decimal_point) == ","; }

  private:
    ScratchDirectory directory_;
};

std::string printed(const char* format, double value) {
    char text[64];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    std::snprintf(text, sizeof text, format, value);
#pragma GCC diagnostic pop
    return text;
}

TEST(Locale, ACommaOfTheHostIsNeitherReadNorWritten) {
    const CommaLocale host;
    if (!CommaLocale::has_comma()) {
        GTEST_SKIP() << "no locale with a decimal comma can be set here";
    }
    ASSERT_EQ(printed("%.2f", 1.5), "1,50");
    const ScratchDirectory directory;
    const std::string input = directory.write("in", "2.5 -0.25 3,5");
    const std::string output = (directory.path() / "out").string();
    double real = 0.0;
    float single = 0.0F;
    double cut = 0.0;
    {
        const CLocaleScope scope;
        TextReader reader = reader_open(input);
        EXPECT_TRUE(reader_double(reader, real));
        EXPECT_TRUE(reader_float(reader, single));
        EXPECT_TRUE(reader_double(reader, cut));
        TextWriter out = writer_replace(output);
        out.print("%.3f ", 1.5);
        out.number("%lf ", -2.25);
        out.text(text_with_lambda("AS(%.2f)", 2.0F));
    }
    EXPECT_EQ(real, 2.5);
    EXPECT_EQ(single, -0.25F);
    EXPECT_EQ(cut, 3.0);
    EXPECT_EQ(directory.read("out"), "1.500 -2.250000 AS(2.00)");
    // The host's own locale is back.
    EXPECT_EQ(printed("%.2f", 1.5), "1,50");
}

TEST(Locale, AScopeGivesTheHostsLocaleBack) {
    if (std::setlocale(LC_ALL, "C.UTF-8") == nullptr) {
        GTEST_SKIP() << "no locale but C can be set here";
    }
    const std::string before = nl_langinfo(CODESET);
    const locale_t of_thread = uselocale(nullptr);
    {
        const CLocaleScope scope;
        EXPECT_NE(nl_langinfo(CODESET), before);
        {
            const CLocaleScope inner;
            EXPECT_NE(nl_langinfo(CODESET), before);
        }
        EXPECT_NE(nl_langinfo(CODESET), before);
    }
    EXPECT_EQ(nl_langinfo(CODESET), before);
    EXPECT_EQ(uselocale(nullptr), of_thread);
    std::setlocale(LC_ALL, "C");
}

}  // namespace
