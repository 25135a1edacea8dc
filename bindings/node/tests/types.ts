// Compiled by tsc --strict, not run: the types say what index.js does.
import { NoInk, Pad, PadError, open, type Ink, type TapKey } from '@kvsignpad/node';

async function capture(signal: AbortSignal): Promise<Buffer | null> {
    const pad: Pad = await open('S300', { width: 800, height: 452, driver: '/its/folder' });
    try {
        pad.pen({ width: 2, color: [0, 0, 128], pressure: true });
        const tap: TapKey | null = await pad.tap({ timeout: 60_000, signal });
        const ink: Ink = pad.ink();
        const pressures: number[] = [...ink].map((point) => point.pressure);
        for await (const image of pad.live('jpeg', { timeout: 10, interval: 5 })) {
            image.subarray(0, pressures.length);
        }
        pad.placeFingerprint({ left: 1, top: 2, width: 3, height: 4 }, { width: 5, height: 6 });
        return tap === 'confirm' ? pad.png({ transparent: false }) : null;
    } catch (error) {
        if (error instanceof NoInk || error instanceof PadError) {
            return null;
        }
        throw error;
    } finally {
        await pad.close();
    }
}

// @ts-expect-error there is no such model
const wrong = open('S999');
void [capture, wrong];
