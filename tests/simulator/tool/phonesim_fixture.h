// phonesim in a temporary directory, run as a user would.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

struct Outcome {
    int status = -1;
    std::string out, err;
};

class PhoneSim : public testing::Test {
  protected:
    PhoneSim() {
        std::string pattern = (std::filesystem::temp_directory_path() / "phonesim-XXXXXX").string();
        path_ = std::filesystem::canonical(mkdtemp(pattern.data()));
    }
    ~PhoneSim() override {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }

    std::string read(const std::string& name) const {
        std::ifstream stream(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    void write(const std::string& name, std::string_view contents) const {
        std::filesystem::create_directories((path_ / name).parent_path());
        std::ofstream(path_ / name, std::ios::binary) << contents;
    }
    // Runs phonesim in the temporary directory with arguments in shell syntax.
    Outcome run(const std::string& arguments) const {
        std::string command = "cd '" + path_.string() + "' && '" PHONESIM "' " + arguments + " >.out 2>.err </dev/null";
        int status = system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, read(".out"), read(".err")};
    }
    void makePhone(const std::string& more = "") const {
        write("c.vcf", "BEGIN:VCARD\nN:Lee;Ann;;;\nTEL:(212) 555-0142\nEND:VCARD\nBEGIN:VCARD\nN:;Bo;;;\nEND:VCARD\n");
        ASSERT_EQ(run("new phone --contacts c.vcf" + more).status, 0);
    }

    std::filesystem::path path_;
};
