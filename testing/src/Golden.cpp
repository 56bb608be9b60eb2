#include "ui/kit/Golden.hpp"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>

namespace ui::kit {

namespace {

std::string& namedFolder() {
    static std::string folder;
    return folder;
}

bool updating() {
    const char* update = std::getenv("UI_UPDATE_GOLDEN");
    return update && std::string(update) == "1";
}

void written(const std::string& path) {
    std::cout << "golden written: " << path << std::endl;
}

} // namespace

void setGoldenFolder(const std::string& folder) {
    namedFolder() = folder;
}

std::string goldenPath(const std::string& path) {
    const std::filesystem::path given(path);
    if (given.is_absolute())
        return path;
    if (!namedFolder().empty())
        return (std::filesystem::path(namedFolder()) / given).string();
    const ::testing::TestInfo* test = ::testing::UnitTest::GetInstance()->current_test_info();
    if (!test || !test->file())
        return path;
    return (std::filesystem::absolute(test->file()).parent_path() / given).string();
}

::testing::AssertionResult matchesGolden(const xui_host::Pixels& actual, const std::string& name,
                                         unsigned tolerance) {
    const std::string path = goldenPath(name);
    const std::string stem = path.substr(0, path.size() - 4);
    if (updating()) {
        std::error_code error;
        std::filesystem::create_directories(std::filesystem::path(path).parent_path(), error);
        if (!xui_host::savePng(actual, path))
            return ::testing::AssertionFailure() << "cannot write the golden " << path;
        written(path);
        return ::testing::AssertionSuccess() << "golden written: " << path;
    }
    const xui_host::Pixels golden = xui_host::loadPng(path);
    if (golden.empty()) {
        xui_host::savePng(actual, stem + "_actual.png");
        return ::testing::AssertionFailure() << "missing golden " << path << " (actual written beside it)";
    }
    if (golden.width != actual.width || golden.height != actual.height) {
        xui_host::savePng(actual, stem + "_actual.png");
        return ::testing::AssertionFailure()
               << "size " << actual.width << "x" << actual.height << " differs from golden " << golden.width
               << "x" << golden.height;
    }
    xui_host::Pixels diff = actual;
    unsigned differing = 0;
    for (size_t i = 0; i < actual.argb.size(); ++i) {
        const uint32_t a = actual.argb[i], g = golden.argb[i];
        bool same = true;
        for (int shift : {24, 16, 8, 0}) {
            const int d = int((a >> shift) & 0xFF) - int((g >> shift) & 0xFF);
            same &= unsigned(d < 0 ? -d : d) <= tolerance;
        }
        if (same) {
            const uint32_t grey = (((a >> 16) & 0xFF) + ((a >> 8) & 0xFF) + (a & 0xFF)) / 3 / 4 + 190;
            diff.argb[i] = 0xFF000000u | grey << 16 | grey << 8 | grey;
        } else {
            diff.argb[i] = 0xFFFF0000u;
            ++differing;
        }
    }
    if (differing == 0) {
        // What an earlier failure left beside it no longer says anything.
        std::error_code error;
        std::filesystem::remove(stem + "_actual.png", error);
        std::filesystem::remove(stem + "_diff.png", error);
        return ::testing::AssertionSuccess();
    }
    xui_host::savePng(actual, stem + "_actual.png");
    xui_host::savePng(diff, stem + "_diff.png");
    return ::testing::AssertionFailure() << differing << " pixels differ from " << path << "; see " << stem
                                         << "_actual.png and " << stem << "_diff.png";
}

::testing::AssertionResult matchesGoldenText(const std::vector<std::string>& actual,
                                             const std::string& name) {
    const std::string path = goldenPath(name);
    if (updating()) {
        std::ofstream out(path);
        for (const auto& line : actual)
            out << line << "\n";
        if (!out)
            return ::testing::AssertionFailure() << "cannot write the golden " << path;
        written(path);
    }
    std::ifstream in(path);
    if (!in)
        return ::testing::AssertionFailure() << "missing golden " << path;
    std::vector<std::string> reviewed;
    for (std::string line; std::getline(in, line);)
        reviewed.push_back(line);
    if (reviewed == actual)
        return ::testing::AssertionSuccess();
    auto failure = ::testing::AssertionFailure() << path << " differs; the actual lines:\n";
    for (const auto& line : actual)
        failure << "  " << line << "\n";
    return failure;
}

::testing::AssertionResult sessionMatchesGoldens(const std::vector<session::Step>& steps,
                                                 const std::string& name, bool timeline) {
    const std::string folder = goldenPath(name);
    std::string differing;
    for (const session::Step& step : steps)
        if (const auto matches = matchesGolden(step.screen, folder + "/" + step.picture); !matches)
            differing +=
                "\n  step " + std::to_string(step.number) + " (" + step.action + "): " + matches.message();
    if (timeline)
        if (const auto matches =
                matchesGoldenText(session::timelineLines(steps, false), folder + "/timeline.txt");
            !matches)
            differing += std::string("\n  ") + matches.message();
    if (differing.empty())
        return ::testing::AssertionSuccess() << steps.size() << " steps as reviewed in " << folder;
    return ::testing::AssertionFailure() << "the session differs from " << folder << ":" << differing;
}

} // namespace ui::kit
