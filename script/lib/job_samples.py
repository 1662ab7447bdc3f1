"""Leaves a sample of each state of the work on the Mac mini, made of the sample in FOLDER/sample.

job_samples.py FOLDER

The states of a job are those of the sync; "busy" and "rich" are of the whole log. Says their names.
"""

import json
import os
import sys

root = sys.argv[1]
with open(root + "/sample/sample.json", encoding="utf-8") as file:
    sample = json.load(file)
board = sample["board"]
me, colleague = board["me"]["email"], next(
    user["email"] for user in board["users"] if user["email"] != board["me"]["email"])
now = max(event["at"] for event in board["events"])
minute = 60_000
steps = ["Read 14 mails of Harrow Print and Ostrander", "Found 3 new proofs",
         "Filed salt-jacket v2 to its PO folder", "Checked 24 pages of the letter against the FBC",
         "Checked the barcode on the back cover", "Comparing page 12 of 32"]
check = ["Ostrander's mail of this morning names no PO. It is filed under \"Unsorted\" until somebody "
         "says which title the proof belongs to.",
         "The jacket of the letter is 3 mm narrower than what was sent.",
         "Two attachments could not be opened: cover_final_FINAL(2).pdf and spine.pdf"]
done = ["Read 14 mails", "Filed 3 new proofs", "Checked 61 pages"]
changed = ["salt-jacket moved to its PO folder", "rain-cover got its second version"]


def job(status, kind="sync", **more):
    return {"id": status + kind, "kind": kind, "status": status, "requested_by": me,
            "created": now - 9 * minute, "started": now - 8 * minute, **more}


def ended(status, ago=5, kind="sync", **more):
    return job(status, kind, finished=now - ago * minute, **more)


every = {"done": done, "changed": changed, "check": check}
syncs = {
    "queued": job("queued"),
    "running": job("running", step="Comparing page 12 of 32", steps=steps),
    "stepless": job("running", step="Reading the mail"),
    "stuck": job("stuck"),
    "done": ended("done", summary={"done": done, "changed": changed}),
    "look": ended("done", summary={**every, "check": 4 * check}),
    "stopped": ended("stopped", summary={"done": done[:1]}),
    "failed": ended("failed", summary={"check": check[2:]}),
    "busy": job("running", step="Comparing page 12 of 32", steps=steps),
    "rich": ended("done", summary=every),
}
report = {"id": "made", "file_ids": [board["files"][0]["id"]], "by": me, "at": now - 12 * minute}
board["reports"].append(report)
rows = [dict(ended(status, ago, "report"), id=status + str(ago), requested_by=who)
        for status, ago, who in [("done", 12, me), ("done", 90, colleague), ("stopped", 200, me),
                                 ("failed", 1500, colleague), ("done", 2900, me)]]
rows[0]["result"] = rows[1]["result"] = {"report_id": report["id"]}
reports = {
    "busy": [job("queued", "report"), job("stuck", "report"), *rows[:1]],
    "rich": rows,
}
for name, sync in syncs.items():
    os.mkdir(f"{root}/{name}")
    board["sync"], board["jobs"] = sync, reports.get(name, [])
    with open(f"{root}/{name}/sample.json", "w", encoding="utf-8") as file:
        json.dump(sample, file)
print(*syncs)
