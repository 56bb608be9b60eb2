// The page's script runs in browsers; the test in Node.js.
import js from "@eslint/js";
import globals from "globals";

export default [
    js.configs.recommended,
    {
        files: ["**/page.js"],
        languageOptions: { sourceType: "script", globals: { ...globals.browser, Module: "writable" } },
    },
    {
        files: ["**/*.mjs"],
        languageOptions: { sourceType: "module", globals: { ...globals.node, ...globals.browser, sim: "readonly" } },
    },
];
