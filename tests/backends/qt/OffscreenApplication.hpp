#pragma once
// The QApplication of a Qt test program, on Qt's offscreen platform unless the environment asks
// for another. Each test program registers it once:
//   const auto* const environment = ::testing::AddGlobalTestEnvironment (new QtTest::OffscreenApplication ("MyTests"));

#include <gtest/gtest.h>

#include <QApplication>
#include <memory>
#include <string>

namespace QtTest {

class OffscreenApplication : public ::testing::Environment {
public:
    explicit OffscreenApplication (std::string programName) : name (std::move (programName)) {}

    void SetUp () override
    {
        if (qEnvironmentVariableIsEmpty ("QT_QPA_PLATFORM")) qputenv ("QT_QPA_PLATFORM", "offscreen");
        argv[0] = name.data ();
        application = std::make_unique<QApplication> (argc, argv);
    }
    void TearDown () override { application.reset (); }

private:
    // QApplication keeps references to both for its whole life.
    std::string                   name;
    int                           argc = 1;
    char*                         argv[2] = {nullptr, nullptr};
    std::unique_ptr<QApplication> application;
};

}   // namespace QtTest
