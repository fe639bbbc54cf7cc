// qmxexif.dll for Node.js and Electron through koffi, a foreign function interface that needs no
// compiler: metadata, texts and preview of a photo, read off the main thread.
//
// In Electron this belongs into the main process or a utility process; hand the results to the
// page over IPC, and the preview as `data:image/jpeg;base64,...` or over a protocol handler.
'use strict';

const koffi = require('koffi');
const path = require('path');

const INT_UNSET = 0x7fffffff; // an integer that the file does not give
const FLOAT_UNSET = 0x7f7fffff; // a float that it does not give, by its bits
const LONG_CAPACITY = 1024; // characters
const SHORT_CAPACITY = 256;

// The text of a UTF-16 buffer up to its NUL.
function textOf(buffer, offset, capacity) {
    const text = buffer.toString('utf16le', offset, offset + 2 * capacity);
    const end = text.indexOf('\0');
    return end < 0 ? text : text.slice(0, end);
}

// ---- InfoRequest: 408 bytes at fixed offsets, see qmxexif.h ----

const RECORD_LENGTH = 408;
const OFFSET = {
    longText: 120, longTextCapacity: 128, shortText: 132, shortTextCapacity: 140,
};

// A record with room for its texts.
class Request {
    constructor() {
        this.record = Buffer.alloc(RECORD_LENGTH);
        this.longText = Buffer.alloc(2 * LONG_CAPACITY);
        this.shortText = Buffer.alloc(2 * (SHORT_CAPACITY + 1)); // one more than is stated
        this.record.writeBigUInt64LE(koffi.address(this.longText), OFFSET.longText);
        this.record.writeInt32LE(LONG_CAPACITY, OFFSET.longTextCapacity);
        this.record.writeBigUInt64LE(koffi.address(this.shortText), OFFSET.shortText);
        this.record.writeInt32LE(SHORT_CAPACITY, OFFSET.shortTextCapacity);
    }

    // The record as an object; what the file does not give is null.
    read() {
        const { record } = this;
        const int = (offset) => {
            const value = record.readInt32LE(offset);
            return value === INT_UNSET ? null : value;
        };
        const float = (offset) =>
            record.readUInt32LE(offset) === FLOAT_UNSET ? null : record.readFloatLE(offset);
        const date = [64, 66, 70, 72, 74, 76].map((offset) => record.readUInt16LE(offset));
        return {
            make: textOf(record, 176, 32),
            model: textOf(record, 0, 32),
            lens: textOf(record, 240, 64),
            whiteBalanceText: textOf(record, 368, 20),
            captureTime: date[0] === 0 ? null : date, // year, month, day, hour, minute, second
            width: int(80),
            height: int(84),
            exposureProgram: int(88),
            focalLength: float(92),
            focalLength35mm: float(96),
            exposureTime: float(100),
            exposureBias: float(104),
            fNumber: float(108),
            isoSpeed: int(112),
            flashFired: record.readUInt32LE(116) !== 0,
            orientation: record.readUInt32LE(144),
            meteringMode: int(164),
            whiteBalance: int(168),
            maxAperture: float(172),
            longText: textOf(this.longText, 0, LONG_CAPACITY),
            shortText: textOf(this.shortText, 0, SHORT_CAPACITY + 1),
        };
    }
}

// ---- IStream ----

// A COM object is a pointer to a table of functions, each of which takes the object first.  The
// library calls Write, Seek and SetSize and keeps no reference; the other methods decline.
const S_OK = 0;
const E_NOTIMPL = 0x80004001 | 0;
const E_NOINTERFACE = 0x80004002 | 0;
const STG_E_MEDIUMFULL = 0x80030070 | 0;
const STG_E_INVALIDFUNCTION = 0x80030001 | 0;
const MAX_BYTES = 2 ** 30; // far above any preview

const streams = new Map(); // by the object's address, while a call runs

class MemoryStream {
    constructor() {
        this.data = Buffer.alloc(0);
        this.length = 0;
        this.position = 0;
        this.object = Buffer.alloc(8);
        this.object.writeBigUInt64LE(koffi.address(methodTable()));
        streams.set(koffi.address(this.object), this);
    }

    close() {
        streams.delete(koffi.address(this.object));
    }

    contents() {
        return this.data.subarray(0, this.length);
    }

    resize(length) {
        if (length > this.data.length) {
            const grown = Buffer.alloc(Math.max(length, 2 * this.data.length));
            this.data.copy(grown, 0, 0, this.length);
            this.data = grown;
        } else if (length < this.length) {
            this.data.fill(0, length, this.length);
        }
        this.length = length;
    }

    write(source, length, written) {
        const end = this.position + length;
        if (end > MAX_BYTES) return STG_E_MEDIUMFULL;
        if (end > this.length) this.resize(end);
        if (length > 0) this.data.set(koffi.decode(source, 'uint8_t', length), this.position);
        this.position = end;
        if (written) koffi.encode(written, 'uint32_t', length);
        return S_OK;
    }

    seek(move, origin, moved) {
        if (origin > 2) return STG_E_INVALIDFUNCTION;
        const target = [0, this.position, this.length][origin] + Number(move);
        if (target < 0) return STG_E_INVALIDFUNCTION;
        this.position = target;
        if (moved) koffi.encode(moved, 'uint64_t', target);
        return S_OK;
    }

    setSize(size) {
        if (size > MAX_BYTES) return STG_E_MEDIUMFULL;
        this.resize(Number(size));
        return S_OK;
    }
}

// The table of all streams, made once and kept: its functions find the stream by its address.
let table = null;
function methodTable() {
    if (table) return table;
    const own = (self) => streams.get(BigInt(self));
    const declined = ['int32_t', ['uintptr_t'], () => E_NOTIMPL];
    const counted = ['uint32_t', ['uintptr_t'], () => 1];
    const methods = [
        ['int32_t', ['uintptr_t', 'void *', 'void *'], () => E_NOINTERFACE], // QueryInterface
        counted, // AddRef
        counted, // Release
        declined, // Read
        ['int32_t', ['uintptr_t', 'void *', 'uint32_t', 'void *'],
            (self, source, length, written) => own(self).write(source, length, written)],
        ['int32_t', ['uintptr_t', 'int64_t', 'uint32_t', 'void *'],
            (self, move, origin, moved) => own(self).seek(move, origin, moved)],
        ['int32_t', ['uintptr_t', 'uint64_t'], (self, size) => own(self).setSize(size)],
        declined, // CopyTo
        ['int32_t', ['uintptr_t', 'uint32_t'], () => S_OK], // Commit
        declined, // Revert
        declined, // LockRegion
        declined, // UnlockRegion
        declined, // Stat
        declined, // Clone
    ];
    table = Buffer.alloc(8 * methods.length);
    methods.forEach(([result, parameters, method], index) => {
        const type = koffi.pointer(koffi.proto(result, parameters));
        table.writeBigUInt64LE(koffi.address(koffi.register(method, type)), 8 * index);
    });
    return table;
}

// ---- The library ----

const EnumCallback = koffi.proto(
    'intptr_t EnumCallback(uint32_t kind, const char16_t *label, const char16_t *value, intptr_t user)');

// Opens the library, given its full path; the result reads photos.
function open(libraryPath) {
    const library = koffi.load(path.resolve(libraryPath));
    const getInfo = library.func('uint32_t ExifGetExifInfoEx(str16 path, void *stream, ' +
        'void *orientation, uint32_t flag, void *request)');
    const enumInfo = library.func('uint32_t ExifEnumInfo(str16 path, EnumCallback *callback, intptr_t user)');

    // Runs the call on one of koffi's threads; the window stays alive meanwhile.  The answer is the
    // record or null.  The callback refers to the record, which so lives as long as the call.
    const ask = (photo, stream, largest) => new Promise((resolve, reject) => {
        const request = new Request();
        getInfo.async(photo, stream ? stream.object : null, null, largest ? 1 : 0, request.record,
            (error, result) => {
                if (error) reject(error);
                else resolve(result === 0 ? null : request.read());
            });
    });

    return {
        // Metadata, texts and, where the file has one, a preview: a JPEG or a BMP.  Null when the
        // file has no metadata.
        async readPhoto(photo, { largest = false } = {}) {
            const stream = new MemoryStream();
            try {
                const answer = await ask(photo, stream, largest);
                if (answer) return { ...answer, preview: Buffer.from(stream.contents()) };
            } finally {
                stream.close();
            }
            // With a stream the call fails for want of a preview too.
            const answer = await ask(photo, null, largest);
            return answer && { ...answer, preview: null };
        },

        // The labelled list: { heading, label, value }; empty when there is no metadata.  Runs on
        // this thread, in much less than a millisecond once the file is in the system's cache.
        readList(photo) {
            const rows = [];
            enumInfo(photo, (kind, label, value) => {
                rows.push({ heading: kind === 1, label, value });
                return 0;
            }, 0);
            return rows;
        },
    };
}

module.exports = { open };
