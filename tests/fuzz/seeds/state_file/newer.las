{
  "layerStateFile": 3,
  "name": "New",
  "description": "",
  "restores": ["on"],
  "savedWithViewport": false,
  "layers": [
    {"name":"Base","on":true,"frozen":false,"viewportFrozen":false,"locked":false,"plot":true,"newViewportFrozen":false,"color":7,"linetype":"Continuous","lineWeight":-3,"plotStyle":"Normal"}
  ]
}
