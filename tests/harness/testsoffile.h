/// @file
/// A test program holds the tests of several sources; this runs those of one.
#ifndef TESTSOFFILE_H
#define TESTSOFFILE_H

/// Runs all tests, or those of the source that an argument `--file=NAME` names. After InitGoogleTest(). The exit code:
/// not 0 when a test fails, and when the source has none.
int runTestsOfFile(int argc, char **argv);

#endif
