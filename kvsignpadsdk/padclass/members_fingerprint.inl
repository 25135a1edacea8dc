// The members that both fingerprint classes forward in the same way.
#ifndef KV_PAD // so that an editor can parse this file by itself
#include "cs310xsignwidget.h"
#include "cs310xwidget_showfpimageondevicethread.h"
#include "defined.h"
#include "fingerprintplacement.h"
#define KV_PAD CS310XSignWidget
#endif

void KV_PAD::RxS310XSignPadFPRawData(unsigned char *pucRawData, int nDataLength, int nScore) { contained::run([&] { fingerprint::takeIn(*this, pucRawData, nDataLength, nScore); }); }
bool KV_PAD::AreWeGoingToShutDown() { return shared::get(m_bGoToShutDown); }
void KV_PAD::CheckIfAnyNewFPImageRawDataOnDeviceAvailable() { fingerprint::takeNewPicture(*this); }
void KV_PAD::ProcessShowFPImgaeRawDataOnDevice() { fingerprint::showPicture(*this); }
void KV_PAD::MergeSignCanvasAndFPCanvas() { fingerprint::merge(*this); }
void KV_PAD::FreeFPImageBase64Data(char *pFPImageBase64Data) { fingerprintplacement::freeText(*this, pFPImageBase64Data); }

QImage KV_PAD::fingerprintLayer() { return fingerprintplacement::layer(*this); }
void KV_PAD::stopDisplayThread(const logging::Key &key) { fingerprint::stopDisplay(*this, key); }
void KV_PAD::updateFingerprintPlace() { fingerprintplacement::updatePlace(*this); }
void KV_PAD::clearFingerprintPlace() { fingerprintplacement::clearPlace(*this); }
void KV_PAD::releaseFingerprintPlaces() { fingerprintplacement::releasePlaces(*this); }
