// declare.mjs FILE: writes the declared members and options as a script for calls.js.
import { writeFileSync } from 'node:fs';
import { readDeclarations } from '../../../types/declarations.mjs';

const { host, interfaces, aliases } = readDeclarations();
const membersOf = ({ members }) => members.map(({ name, uses, type, parameters }) => ({ name, uses, type, parameters }));
const described = [host, ...interfaces].map((one) => [one.name, { bases: one.bases, members: membersOf(one) }]);
const declared = { interfaces: Object.fromEntries(described), aliases };
writeFileSync(process.argv[2], `const declared = ${JSON.stringify(declared, null, 1)};\n`);
