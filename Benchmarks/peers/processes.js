// Child processes in Node.
const {spawn} = require('child_process');
const launches = Number(process.argv[2]), size = Number(process.argv[3]);

function report(name, begin, check) {
    console.log(`${name} ${(Number(process.hrtime.bigint() - begin) / 1e9).toFixed(6)} ${check}`);
}

function run(path, commandLine) {
    return new Promise((done, failed) => {
        const child = spawn(path, commandLine, {stdio: ['inherit', 'pipe', 'pipe']});
        let count = 0;
        child.stdout.on('data', piece => { count += piece.length; });
        child.stderr.on('data', piece => { count += piece.length; });
        child.on('error', failed);
        child.on('close', () => done(count));
    });
}

(async () => {
    let begin = process.hrtime.bigint();
    for (let i = 0; i < launches; i++) await run('/bin/true', []);
    report('launches', begin, launches);
    begin = process.hrtime.bigint();
    report('output', begin, await run('/usr/bin/head', ['-c', String(size), '/dev/zero']));
})();
