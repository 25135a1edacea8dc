/// @file
/// Fingerprints of nobody: ridges grown along an orientation field with one core and one delta.
#ifndef FINGER_H
#define FINGER_H

#include "greyimage.h"

namespace kvsim {

/// How the finger lies on the sensor.
struct Contact
{
    double size; ///< share of the picture that the finger covers in each direction
    double contrast; ///< 0 to 1
    double noise; ///< 0 to 1
};

/// Quality 0 to 100. With it the contact gets larger and darker, and the noise less.
Contact contactOfQuality(int quality);

/// The same seed gives the same finger at any quality.
GreyImage makeFinger(unsigned seed, const Contact &contact);

} // namespace kvsim

#endif
