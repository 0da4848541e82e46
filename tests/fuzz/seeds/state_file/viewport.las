{
  "layerStateFile": 1,
  "name": "Sheet",
  "description": "",
  "restores": ["on","frozen","viewportFrozen","locked","plot","newViewportFrozen","color","linetype","lineWeight","plotStyle"],
  "currentLayer": "base",
  "savedWithViewport": true,
  "layers": [
    {"name":"Base","on":true,"frozen":false,"viewportFrozen":true,"locked":false,"plot":true,"newViewportFrozen":false,"color":[255,128,0],"linetype":"Continuous","lineWeight":-3,"plotStyle":"Normal"},
    {"name":"plan!Walls","on":true,"frozen":false,"viewportFrozen":false,"locked":false,"plot":true,"newViewportFrozen":false,"color":7,"linetype":"","lineWeight":211,"plotStyle":""}
  ]
}
