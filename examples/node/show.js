// Shows photos as an image browser would: all of them asked for at once, the window never blocked.
//
//     node show.js LIBRARY PHOTO PREVIEW [OUTPUT]
//
// Without OUTPUT the texts go to standard output.
'use strict';

const fs = require('fs');
const qmxexif = require('./qmxexif.js');

async function main([library, photoPath, previewPath, outputPath]) {
    const reader = qmxexif.open(library);

    // Many photos at a time, as when a folder opens: calls share nothing and run side by side.
    const photos = await Promise.all(Array.from({ length: 8 }, () => reader.readPhoto(photoPath)));
    const photo = photos[0];
    if (!photo) throw new Error('no metadata');
    for (const other of photos) {
        if (!other.preview.equals(photo.preview)) throw new Error('previews differ');
    }

    const lines = [photo.shortText, '', photo.longText, ''];
    for (const { heading, label, value } of reader.readList(photoPath).slice(0, 6)) {
        if (heading) lines.push(`[${label}]`);
        else lines.push(value === null ? label : `${label}: ${value}`);
    }
    if (photo.preview) {
        fs.writeFileSync(previewPath, photo.preview);
        lines.push('', `preview: ${photo.preview.length} bytes, orientation ${photo.orientation}`);
    }
    fs.writeFileSync(outputPath || 1, `${lines.join('\n')}\n`);
}

main(process.argv.slice(2)).catch((error) => {
    fs.writeFileSync(process.argv[5] || 2, `${error.stack}\n`);
    process.exitCode = 1;
});
