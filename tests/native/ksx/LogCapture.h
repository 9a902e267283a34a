#pragma once
// Test fixture: log lines and the error stream captured, process-wide settings restored after.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "ksx/LogFactory.h"
#include "ksx/OStream.h"

class LogCapture : public ::testing::Test {
protected:
    void SetUp() override
    {
        // Bodies only: "<name> <priority> <text>", the "YYYY-MM-DD HH:MM:SS.mmm " prefix cut.
        ksx::LogFactory::setSink([this](const std::string& line) { lines.push_back(line.substr(24)); });
        ksx::cerr.setTarget(&errorStream);
    }
    void TearDown() override
    {
        ksx::LogFactory::resetSink();
        ksx::cerr.setTarget(nullptr);
        ksx::LogFactory::setPriority(ksx::LoggerPriority::PRIORITY_WARNING);
    }

    std::vector<std::string> lines;
    std::ostringstream errorStream;
};
