// Parses every statement that sqlproof wrote as T-SQL:   node check.mjs STATEMENTS.jsonl FOLDER-OF-NODE_MODULES [all]
//
// Statements that the parser must refuse are named below with the reason; one that it takes all the same is a failure
// too, and so is a reason without any statement when these are "all". The last line is "N passed, N failed".
import { readFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import path from 'node:path';

const [file, modules, share] = process.argv.slice(2);
const { Parser } = createRequire(path.resolve(modules) + '/')('node-sql-parser/build/transactsql');
const parser = new Parser();

const captionWidth = 255;
const isChecked = (line) => line.type < 0 || [2, 4, 6, 8, 9, 10].includes(line.type);
const isGuarded = (line) => line.type < 0 || [2, 4, 6, 9, 10, 501].includes(line.type);
const operatorOf = (line) => line.operator.trim().toUpperCase();
const isScalar = (line) => ['=', '!=', '<>', '<', '<=', '>', '>='].includes(operatorOf(line));
const takesValue = (line) => line.typed;
const isSeveral = (line) => ['IN', 'NOT IN', 'BETWEEN'].includes(operatorOf(line));
const hasOpenQuote = (text) => text.split("'").length % 2 === 0;

/// What a look-up cell gives to the comparison.
const lookedUp = (line) =>
    line.comparesKey ? line.value.slice(captionWidth) : line.value.slice(0, captionWidth).trim();

const exceptions = [
    {
        reason: 'the host\'s comparison has an input type that does not exist: nothing stands between the brackets',
        holds: (line) => takesValue(line) && !['0', '1', '2'].includes(line.input),
    },
    {
        reason: 'the parser does not know the operator "!<", for which the control writes no value of its own either',
        holds: (line) => takesValue(line) && operatorOf(line) === '!<' && !isNothingPicked(line),
    },
    {
        reason: 'a list or range of a numeric column is typed as one number (input type 0)',
        holds: (line) => takesValue(line) && line.input === '0' && isGuarded(line) && isSeveral(line),
    },
    {
        reason: 'a look-up gives one value to a comparison that takes several',
        // The parser takes a text without brackets for a list of one.
        holds: (line) =>
            takesValue(line) &&
            line.input === '1' &&
            (operatorOf(line) === 'BETWEEN' || (isGuarded(line) && isSeveral(line))),
    },
    {
        reason: 'quotes in a text are not doubled',
        holds: (line) =>
            takesValue(line) &&
            (line.input === '1'
                ? !isGuarded(line) && !isNothingPicked(line) && hasOpenQuote(lookedUp(line))
                : !isChecked(line) && line.type !== 501 && line.type !== 0 && hasOpenQuote(line.value)),
    },
    {
        reason: 'the raw type takes any expression, also one that is none',
        holds: (line) =>
            takesValue(line) &&
            line.type === 501 &&
            line.input === '2' &&
            isScalar(line) &&
            ['', '   ', '12abc', "1' OR '1'='1", '%', '2024-01-15 10:30:00', '20240229x'].includes(line.value),
    },
    {
        reason: 'numbers such as ".5", "5." and "¥12" are T-SQL, but the parser does not know them',
        holds: (line) =>
            takesValue(line) &&
            ['.5', '5.', '¥12'].includes(line.value) &&
            isScalar(line) &&
            ((line.type === 8 && line.input === '0') || ((isChecked(line) || line.type === 501) && line.input === '2')),
    },
    {
        reason: 'an unknown keyword leaves the operator without a value',
        holds: (line) => !takesValue(line) && line.keyword === 'UNHEARDOF',
    },
    {
        reason: 'a keyword with an operator that does not go with it',
        holds: (line) => !takesValue(line) && line.keyword === 'ISNULL' && operatorOf(line) === 'BETWEEN',
    },
];

/// The dots that stand for nothing picked: with "<>" they are a condition of their own.
function isNothingPicked(line) {
    return line.input === '1' && !isGuarded(line) && operatorOf(line) === '<>' && line.value.startsWith('...');
}

function failureOf(sql) {
    try {
        parser.astify(sql, { database: 'transactsql' });
        return null;
    } catch (error) {
        return error.message.replace(/^.*but /s, '');
    }
}

let passed = 0;
let failed = 0;
let lenient = 0;
function fail(what) {
    if (++failed <= 20) console.log(`FAILED: ${what}`);
}
for (const text of readFileSync(file, 'utf8').split('\n')) {
    if (text === '') continue;
    const record = JSON.parse(text);
    const failure = failureOf(record.sql);
    const reasons = exceptions.filter(({ holds }) => record.lines.some(holds));
    if (failure === null && reasons.length > 0) fail(`parsed although ${reasons[0].reason}: ${text}`);
    else if (failure !== null && reasons.length === 0) fail(`${failure}: ${text}`);
    else passed++;
    for (const entry of reasons.slice(0, 1)) entry.count = (entry.count ?? 0) + 1;
    if (failure === null && record.refused) lenient++;
}
for (const { reason, count } of exceptions) {
    if (count) console.log(`${count} statements are no T-SQL as expected: ${reason}`);
    else if (share === 'all') fail(`no statement any more for: ${reason}`);
}
console.log(`${lenient} more statements parse that the database refuses: values that it cannot convert`);
console.log(`${passed} passed, ${failed} failed`);
process.exitCode = failed === 0 && passed > 0 ? 0 : 1;
