/// @file
/// A test program contains the tests of several sources; this runs those of one.
#ifndef TESTSOFFILE_H
#define TESTSOFFILE_H

/// Runs all tests, or with the argument `--file=NAME` those of that source. Call it after InitGoogleTest(). Returns the
/// exit code: not 0 when a test fails or the source has no tests.
int runTestsOfFile(int argc, char **argv);

#endif
