#!/usr/bin/env bash
# A request in free words goes to the chat service, and the action of its reply changes the photo.
# shellcheck source=Tests/EndToEnd/support.sh
source "$(dirname "$0")/support.sh"

cat >"$work/reply" <<'REPLY'
```json
{"message": "A warm, faded look.",
 "action": {"type": "lr_adjust_sliders", "text": "Temp:600:1;Blacks:18:0;Contrast:-12:0"},
 "artifact": {"kind": "markdown", "title": "Warm and faded", "body": "- warmer\\n- lifted blacks"}}
```
REPLY
start_chat_server

start_lightroom

# The key stands in a file of the working directory, as for local development.
cd "$work"
echo 'KELVALR_OPENAI_API_KEY="test-key"' >.env.local
answer=$("$kelvalr" --prompt "give this a warm, faded look")
expect "answer" "> give this a warm, faded look
A warm, faded look.
  [Warm and faded, ready]
    - warmer
    - lifted blacks
Lightroom Classic: Adjusted 3 sliders on 1 photo" "$answer"
expect "contrast" "-12" "$(xmp "$first" Xmp.crs.Contrast2012)"
expect "blacks" "+18" "$(xmp "$first" Xmp.crs.Blacks2012)"
[ -n "$(xmp "$first" Xmp.crs.Temperature)" ] || expect "temperature in the sidecar" "a value" ""
expect "prompts that were sent" 1 "$(grep -c 'give this a warm, faded look' "$work/requests")"

# A key of the environment comes first, and none is ever shown.
answer=$(KELVALR_OPENAI_API_KEY=wrong-key "$kelvalr" --prompt "give this a warm, faded look" 2>&1 | tail -n 1)
expect "a key that is refused" "OpenAI request failed: HTTP 401" "$answer"

kill "${programs[-1]}"
wait "${programs[-1]}" || true
expect "a service that is gone" "OpenAI request failed: Connection refused" \
    "$("$kelvalr" --prompt "give this a warm, faded look" | tail -n 1)"
finish
