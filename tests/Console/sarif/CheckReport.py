# Checks a SARIF report of corvane-format against the published schema, and that the fixes it tells are what formatting
# does: CheckReport.py PROGRAM SOURCE...
import json, os, subprocess, sys
import jsonschema

program, sources = sys.argv[1], sys.argv[2:]
schema = json.load(open(os.path.join(os.path.dirname(__file__), "sarif-2.1.0-rtm.5.json")))
validator = jsonschema.validators.validator_for(schema)(schema)


def offset(lines, line, column):
    return sum(len(text) for text in lines[: line - 1]) + column - 1


def fixed(source, results):
    lines, edits = source.split("\n"), []
    lines = [text + "\n" for text in lines]
    for result in results:
        for fix in result.get("fixes", []):
            for replacement in fix["artifactChanges"][0]["replacements"]:
                region = replacement["deletedRegion"]
                edits.append((offset(lines, region["startLine"], region["startColumn"]),
                              offset(lines, region["endLine"], region["endColumn"]),
                              replacement["insertedContent"]["text"]))
    for begin, end, text in sorted(edits, reverse=True):
        source = source[:begin] + text + source[end:]
    return source, len(edits)


seen = set()
for path in sources:
    run = subprocess.run([program, "--check", "--format=sarif", path], capture_output=True)
    report = json.loads(run.stdout)
    validator.validate(report)
    results = report["runs"][0]["results"]
    seen |= {result["ruleId"] for result in results}
    assert report["runs"][0]["invocations"][0]["executionSuccessful"] == (run.returncode != 2), path
    wanted = subprocess.run([program, path], capture_output=True)
    if wanted.returncode != 0:
        assert any(result["level"] == "error" for result in results), path
        continue
    source = open(path, newline="", encoding="utf-8-sig").read()
    text, count = fixed(source, results)
    assert text == wanted.stdout.decode("utf-8-sig"), path
    assert (count > 0) == (run.returncode == 1), path
assert seen == {"layout", "refused"}, seen
