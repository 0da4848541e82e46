{
  "layerStateFile": 1,
  "name": "😀 \"x\"\\",
  "description": "two\nlines\t",
  "restores": ["on"],
  "furtherMaskBits": 2147483648,
  "savedWithViewport": false,
  "layers": [
    {"name":"AäЖ","on":true,"frozen":false,"viewportFrozen":false,"locked":false,"plot":true,"newViewportFrozen":false,"color":7,"linetype":"Continuous","lineWeight":-3,"plotStyle":"Normal"}
  ]
}
