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

/// A better quality (0 to 100) is a larger and darker contact with less noise.
Contact contactOfQuality(int quality);

/// The same seed is the same finger, whatever the contact.
GreyImage makeFinger(unsigned seed, const Contact &contact);

} // namespace kvsim

#endif
