/// @file
/// The subcommands, each in the file of its name.
#ifndef SUBCOMMANDS_H
#define SUBCOMMANDS_H

#include "commandline.h"

extern const Subcommand kCaptureSubcommand;
extern const Subcommand kInfoSubcommand;
extern const Subcommand kConvertSubcommand;
extern const Subcommand kInspectSubcommand;
extern const Subcommand kReplaySubcommand;
extern const Subcommand kSignSubcommand;
extern const Subcommand kVerifySubcommand;
extern const Subcommand kUnsealSubcommand;
extern const Subcommand kDoctorSubcommand;
extern const Subcommand kCompletionSubcommand;

inline constexpr const Subcommand *kSubcommands[] = {&kCaptureSubcommand, &kInfoSubcommand, &kConvertSubcommand,
    &kInspectSubcommand, &kReplaySubcommand, &kSignSubcommand, &kVerifySubcommand, &kUnsealSubcommand,
    &kDoctorSubcommand, &kCompletionSubcommand};

#endif
