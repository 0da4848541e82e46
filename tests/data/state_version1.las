{
  "layerStateFile": 1,
  "name": "Groß",
  "description": "line one\nline \"two\"",
  "restores": ["on","color","plotStyle"],
  "furtherMaskBits": 65536,
  "currentLayer": "A-WALL",
  "savedWithViewport": true,
  "layers": [
    {"name":"Base","on":true,"frozen":false,"viewportFrozen":false,"locked":false,"plot":true,"newViewportFrozen":false,"color":1,"linetype":"Continuous","lineWeight":-3,"plotStyle":"Normal"},
    {"name":"A-WALL","on":false,"frozen":true,"viewportFrozen":false,"locked":true,"plot":false,"newViewportFrozen":false,"color":[255,128,0],"linetype":"Dashed","lineWeight":25,"plotStyle":""},
    {"name":"plan!A-WALL","on":true,"frozen":false,"viewportFrozen":true,"locked":false,"plot":true,"newViewportFrozen":true,"color":256,"linetype":"Lost linetype","lineWeight":211,"plotStyle":"Grey"}
  ]
}
