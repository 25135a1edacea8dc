/// @file
/// The simulator's control functions: what a test or a tool can do with it besides the driver's eleven operations.
///
/// The functions are exported by libkvsignpaddrv.so. A program that loads the driver at run time finds them with dlsym;
/// decltype(&KVSIM_SendPackets) is the matching pointer type. Settings last until KVSIM_Reset or until the library is
/// unloaded. A test that makes settings before another part of the program loads the driver must therefore hold a
/// dlopen handle itself. Every function may be called from any thread.
#ifndef SIMULATORCONTROL_H
#define SIMULATORCONTROL_H

#ifdef __cplusplus
extern "C" {
#endif

#pragma GCC visibility push(default)

/// One pen packet as a pad sends it: raw units and a KVSPDAPI_PEN_STATUS (any int is passed on as it is).
struct KVSIM_PACKET
{
    int x;
    int y;
    int pressure;
    int status;
};

/// Delivers packets from the reading thread, in order, and returns after the last callback has returned.
/// Returns how many were delivered: fewer than count only when the driver was closed or the pad unplugged meanwhile. -1
/// when the driver is not open, or when called from inside a callback (that is, on the reading thread itself).
int KVSIM_SendPackets(const struct KVSIM_PACKET *packets, int count);

/// Delivers one fingerprint in the same way. The callback gets this very pointer, even null. Returns 1; 0 when this pad
/// delivers no fingerprints (another device type than 7, or no callback), or -1 as KVSIM_SendPackets does.
int KVSIM_SendFingerprint(const unsigned char *data, int length, int score);

/// Packets that the reading thread delivers during each following Initial, before that returns. A count of 0 ends this.
void KVSIM_SetReadingThreadPackets(const struct KVSIM_PACKET *packets, int count);

/// Makes an operation (its name with or without KVSPDAPI_) return this result from its next call on. With a result
/// other than 0 Initial does not open and a command does nothing; a text query still writes its text, and UnInitial
/// still closes. This takes precedence over the recording.
void KVSIM_SetResult(const char *operation, int result);

/// Sets the text that a query (GetDevicePartsVersion...) writes. With null it writes nothing, but answers as usual.
void KVSIM_SetText(const char *operation, const char *text);

/// How long ShowFPImageOnDevice takes, in milliseconds; negative: as KVSIM_SCREEN_MS says. A time of
/// 0 or more also applies to a picture that is being shown, counted from its beginning.
void KVSIM_SetScreenDelay(int milliseconds);

/// The operations called so far, one a line with their arguments: "Initial 5 fp=0", "OpenDeviceLCD 1",
/// "GetDevicePenID 32", "ShowFPImageOnDevice 29952 104 144". Writes at most size bytes with the closing zero and
/// answers the full length, without that zero; a null buffer is allowed.
int KVSIM_Calls(char *buffer, int size);
void KVSIM_ForgetCalls(void);

/// How many pad pictures were shown to the end, and the bytes of the last one (answers its full length).
int KVSIM_ShownPictures(void);
int KVSIM_LastPicture(unsigned char *buffer, int size);

/// 1 while the driver is open; 1 while it is open and the pad's screen is on.
int KVSIM_IsOpen(void);
int KVSIM_IsScreenOn(void);

/// Ends the delay (KVSIM_DELAY_MS) before the recording: a test that sets a long one says here when it is ready.
/// Answers 0, or -1 when the driver is not open.
int KVSIM_EndDelay(void);

/// Waits until the recording has been played to its end. Answers 1 when it has or there is none, 0 when the time is
/// over, and -1 when the driver is not open or was closed meanwhile.
int KVSIM_WaitUntilPlayed(int timeoutMs);

/// Forgets results, texts, reading-thread packets, screen delay, calls and pictures. An open pad stays open.
/// A pad that a recording has unplugged may be opened again.
void KVSIM_Reset(void);

#pragma GCC visibility pop

#ifdef __cplusplus
}
#endif

#endif
